// The file viewer and the default browser. Main thread only.
#pragma once

#include "Platform/AppKit/Conversions.h"
#include "Platform/Services.h"

namespace Vexora {

class AppKitWorkspace : public Workspace {
public:
    void selectFile(const std::string& path) override {
        [[NSWorkspace sharedWorkspace] selectFile:toNSString(path) inFileViewerRootedAtPath:@""];
    }
    void openUrl(const std::string& address) override {
        [[NSWorkspace sharedWorkspace] openURL:[NSURL URLWithString:toNSString(address)]];
    }
};

} // namespace Vexora
