#include "Platform/AppKit/SystemLog.h"

#include "Platform/AppKit/Conversions.h"

namespace Vexora {

void AppKitSystemLog::log(const std::string& line) {
    const AutoreleaseScope scope;
    NSLog(@"%@", toNSString(line).get());
}

} // namespace Vexora
