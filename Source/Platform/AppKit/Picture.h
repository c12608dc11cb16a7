// The view behind an image view: one picture of the resource directory, sharp at every scale.
// A picture that is missing leaves the place empty.
#pragma once

#include "Platform/AppKit/Compatibility.h"

#include <string>

@interface VexoraPicture : NSImageView {
@public
    /// The picture's name without scale and ending.
    Vexora::Strong<NSString> imageName;
}

/// Shows the picture `<imageName>.png` of that folder, and `<imageName>@2x.png` on a dense screen.
- (void)loadFrom:(const std::string&)folder;

@end
