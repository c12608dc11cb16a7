// A function as an object that the toolkit can keep and send a message.
#pragma once

#include "Platform/AppKit/Compatibility.h"

#include <functional>
#include <memory>

struct VexoraFunction;

@interface VexoraHandler : NSObject {
@public
    std::unique_ptr<VexoraFunction> function;
}
/// Calls the function.
- (void)handle:(id)sender;
@end

namespace Vexora {

Strong<VexoraHandler> makeHandler(std::function<void()> function);

/// Whether the key is one that presses what has the focus: Return, Enter or the space bar.
bool isPressing(NSEvent* event);

} // namespace Vexora
