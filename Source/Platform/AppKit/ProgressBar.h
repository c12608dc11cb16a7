// The view behind a progress indicator: a bar that may have the focus, so that it is spoken, but not by
// the Tab key. Once it is full, its end carries the mark of a success.
#pragma once

#include "Platform/AppKit/Compatibility.h"

@interface VexoraBar : NSProgressIndicator {
@private
    Vexora::Strong<NSView> mark;
}
@end
