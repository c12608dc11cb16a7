#include "AppDelegate.h"

namespace Vexora {

void AppDelegate::applicationDidFinishLaunching() {
    Application& application = platform_.application;
    application.activateIgnoringOtherApps();
    if (const auto windows = application.windows(); !windows.empty()) {
        windows.front()->center();
    }
    application.onWindowWillClose([this] { onWindowClose(); });
}

void AppDelegate::onWindowClose() {
    platform_.application.exit(0);
}

} // namespace Vexora
