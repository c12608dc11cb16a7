#include "Platform/AppKit/Workspace.h"

#include "Platform/AppKit/Conversions.h"

namespace Vexora {

void AppKitWorkspace::selectFile(const std::string& path) {
    [[NSWorkspace sharedWorkspace] selectFile:toNSString(path) inFileViewerRootedAtPath:@""];
}

void AppKitWorkspace::openUrl(const std::string& address) {
    [[NSWorkspace sharedWorkspace] openURL:[NSURL URLWithString:toNSString(address)]];
}

} // namespace Vexora
