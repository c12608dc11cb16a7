// Diagnostic lines in the system's log. Any thread.
#pragma once

#include "Platform/Services.h"

namespace Vexora {

class AppKitSystemLog : public SystemLog {
public:
    void log(const std::string& line) override;
};

} // namespace Vexora
