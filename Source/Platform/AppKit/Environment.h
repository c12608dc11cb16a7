// Where the process runs and for whom, as the bundle and the user's settings tell it. Any thread.
#pragma once

#include "Platform/AppKit/Conversions.h"
#include "Platform/Posix/Environment.h"
#include "Platform/Services.h"

namespace Vexora {

class AppKitEnvironment : public Environment {
public:
    std::string homeDirectory() override {
        const AutoreleaseScope scope;
        return homeFolder() == nil ? posixHomeDirectory() : toUtf8(homeFolder());
    }
    std::string resourcePath() override {
        const AutoreleaseScope scope;
        return toUtf8(bundleResourcePath());
    }
    std::string localeIdentifier() override {
        const AutoreleaseScope scope;
        return toUtf8([[NSLocale currentLocale] localeIdentifier]);
    }
};

} // namespace Vexora
