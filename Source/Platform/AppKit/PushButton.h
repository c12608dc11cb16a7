// The view behind a button: it grows with its title, and takes Return and Escape
// only while it can be seen.
#pragma once

#include "Platform/AppKit/Handler.h"

@interface VexoraButton : NSButton {
@public
    /// Whether Escape presses it, beside Return when it is the default button.
    BOOL cancels;

@private
    BOOL isDefault;
    CGFloat leastWidth;
    Vexora::Strong<VexoraHandler> clickHandler;
}

/// Whether Return presses it.
- (void)setIsDefault:(BOOL)newDefault;

/// Sets what a press does.
- (void)setClickHandler:(VexoraHandler*)handler;

@end
