// Loads the interface definitions, which are compiled into the program, and makes views of their
// widgets. Pictures come from the resource directory. Main thread only.
#pragma once

#include "Platform/Interface.h"
#include "Platform/Services.h"

namespace Vexora {

class QtInterfaceLoader : public InterfaceLoader {
public:
    /// \param environment tells the resource directory; outlives the loader.
    explicit QtInterfaceLoader(Environment& environment) : environment_(environment) {}

    Interface load(const std::string& name) override;
    std::shared_ptr<TextView> makeTextView(Size size) override;

private:
    Environment& environment_;
};

} // namespace Vexora
