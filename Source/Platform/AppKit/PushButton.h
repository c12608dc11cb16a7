// The view behind a button: it grows with its title, and takes Escape and, as the default button of its
// window, Return only while it can be seen.
#pragma once

#include "Platform/AppKit/Handler.h"

@interface VexoraButton : NSButton {
@public
    /// Whether Escape presses it.
    BOOL cancels;

@private
    CGFloat leastWidth;
    Vexora::Strong<VexoraHandler> clickHandler;
}

/// Sets what a press does.
- (void)setClickHandler:(VexoraHandler*)handler;

@end
