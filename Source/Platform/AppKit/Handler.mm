#include "Platform/AppKit/Handler.h"

struct VexoraFunction {
    std::function<void()> call;
};

@interface VexoraHandler ()
- (void)setFunction:(std::unique_ptr<VexoraFunction>*)newFunction;
@end

@implementation VexoraHandler

- (void)setFunction:(std::unique_ptr<VexoraFunction>*)newFunction {
    function = std::move(*newFunction);
}

- (void)handle:(id)sender {
    function->call();
}

@end

namespace Vexora {

Strong<VexoraHandler> makeHandler(std::function<void()> function) {
    auto owned = std::make_unique<VexoraFunction>(VexoraFunction{std::move(function)});
    const Strong<VexoraHandler> handler = adopt<VexoraHandler>([[VexoraHandler alloc] init]);
    [handler.get() setFunction:&owned];
    return handler;
}

} // namespace Vexora
