#include "Platform/AppKit/Environment.h"

#include "Platform/AppKit/Conversions.h"
#include "Platform/Posix/Environment.h"

namespace Vexora {

std::string AppKitEnvironment::homeDirectory() {
    const AutoreleaseScope scope;
    return homeFolder() == nil ? posixHomeDirectory() : toUtf8(homeFolder());
}

std::string AppKitEnvironment::resourcePath() {
    const AutoreleaseScope scope;
    return toUtf8(bundleResourcePath());
}

std::string AppKitEnvironment::localeIdentifier() {
    const AutoreleaseScope scope;
    return toUtf8([[NSLocale currentLocale] localeIdentifier]);
}

} // namespace Vexora
