#include "Platform/AppKit/Handler.h"

struct VexoraFunction {
    std::function<void()> call;
};

@implementation VexoraHandler

- (void)handle:(id)sender {
    function->call();
}

@end

namespace Vexora {

Strong<VexoraHandler> makeHandler(std::function<void()> function) {
    const Strong<VexoraHandler> handler = adopt<VexoraHandler>([[VexoraHandler alloc] init]);
    handler.get()->function = std::make_unique<VexoraFunction>(VexoraFunction{std::move(function)});
    return handler;
}

bool isPressing(NSEvent* event) {
    return [[NSArray arrayWithObjects:@"\r", @"\003", @" ", nil]
        containsObject:[event charactersIgnoringModifiers]];
}

} // namespace Vexora
