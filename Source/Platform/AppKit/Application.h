// The application and its main window on the Mac's desktop.
// Main thread only.
#pragma once

#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Handler.h"
#include "Platform/Application.h"

#include <cstdlib>

namespace Vexora {

class AppKitWindow : public Window {
public:
    AppKitWindow();
    AppKitWindow(const AppKitWindow&) = delete;
    AppKitWindow& operator=(const AppKitWindow&) = delete;
    ~AppKitWindow() override;

    /// Shows the root view of the content as the whole of the window.
    /// \param content a pane.
    void setContent(NSView* content);

    void setTitle(const std::string& title) override { [window() setTitle:toNSString(title)]; }
    void center() override { [window() center]; }

    NSWindow* window() const { return window_.get(); }

private:
    Strong<NSWindow> window_;
    /// Hears that the user asks for contrast, or no longer does.
    Strong<VexoraHandler> contrastObserver_;
};

class AppKitApplication : public Application {
public:
    AppKitApplication() = default;
    AppKitApplication(const AppKitApplication&) = delete;
    AppKitApplication& operator=(const AppKitApplication&) = delete;
    ~AppKitApplication() override {
        [[NSNotificationCenter defaultCenter] removeObserver:closeObserver_];
        setMainMenu(nil);
    }

    AppKitWindow& mainWindow() { return mainWindow_; }

    std::vector<Window*> windows() override { return {&mainWindow_}; }
    void activateIgnoringOtherApps() override { [NSApp activateIgnoringOtherApps:YES]; }
    void onWindowWillClose(std::function<void()> handler) override;
    void setLanguage(const std::string& languageCode) override;
    void setCloseCommand(const std::string& name) override;
    void exit(int status) override { std::exit(status); }

private:
    AppKitWindow mainWindow_;
    Strong<VexoraHandler> closeObserver_;
};

} // namespace Vexora
