// Diagnostic lines in the system's log. Any thread.
#pragma once

#include "Platform/AppKit/Conversions.h"
#include "Platform/Services.h"

namespace Vexora {

class AppKitSystemLog : public SystemLog {
public:
    void log(const std::string& line) override {
        const AutoreleaseScope scope;
        NSLog(@"%@", toNSString(line).get());
    }
};

} // namespace Vexora
