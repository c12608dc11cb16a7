// Where the process runs and for whom, as the bundle and the user's settings tell it. Any thread.
#pragma once

#include "Platform/Services.h"

namespace Vexora {

class AppKitEnvironment : public Environment {
public:
    std::string homeDirectory() override;
    std::string resourcePath() override;
    std::string localeIdentifier() override;
};

} // namespace Vexora
