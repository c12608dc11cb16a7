// The view behind a button: it grows with its title and may be pressed by Escape.
#pragma once

#include "Platform/AppKit/Handler.h"

@interface VexoraButton : NSButton {
@public
    /// Whether Escape presses it, beside Return when it is the default button.
    BOOL cancels;

@private
    CGFloat leastWidth;
    Vexora::Strong<VexoraHandler> clickHandler;
}

/// Sets what a press does.
- (void)setClickHandler:(VexoraHandler*)handler;

@end
