#include "Platform/AppKit/Picture.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Conversions.h"

#include <initializer_list>

@implementation VexoraPicture

- (void)loadFrom:(const std::string&)folder {
    const auto image = Vexora::adopt<NSImage>([[NSImage alloc] initWithSize:[self bounds].size]);
    for (const char* scale : std::initializer_list<const char*>{"", "@2x"}) {
        NSData* const bytes =
            Vexora::dataOfFile(folder + '/' + Vexora::toUtf8(imageName) + scale + ".png");
        NSImageRep* const picture = bytes == nil ? nil : [NSBitmapImageRep imageRepWithData:bytes];
        if (picture != nil) {
            // Both are as large on the screen; the denser one has more pixels there.
            [picture setSize:[self bounds].size];
            [image.get() addRepresentation:picture];
        }
    }
    [self setImage:image];
    // It says nothing that the texts do not.
    Vexora::hideFromAssistiveTools(self);
}

- (BOOL)acceptsFirstResponder {
    return NO;
}

@end
