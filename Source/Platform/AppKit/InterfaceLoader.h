// Loads the interface definitions, JSON files in the resource directory, and makes views of what
// they describe. Pictures come from the resource directory too. Main thread only.
#pragma once

#include "Platform/Interface.h"
#include "Platform/Services.h"

namespace Vexora {

class AppKitInterfaceLoader : public InterfaceLoader {
public:
    /// \param environment tells the resource directory; outlives the loader.
    explicit AppKitInterfaceLoader(Environment& environment) : environment_(environment) {}

    Interface load(const std::string& name) override;
    std::shared_ptr<TextView> makeTextView(Size size) override;

private:
    Environment& environment_;
};

} // namespace Vexora
