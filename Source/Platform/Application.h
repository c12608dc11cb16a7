// The running application and its windows, as far as the delegate and the screens need them. Main
// thread only. Closing a window and leaving the process are separate things here: only the delegate
// joins them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Vexora {

class View;

/// A window of the desktop.
class Window {
public:
    virtual ~Window() = default;

    /// Sets the text of the title bar; UTF-8.
    virtual void setTitle(const std::string& title) = 0;

    /// Moves the window to the middle of its screen.
    virtual void center() = 0;
};

/// The process as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    /// The windows, the main window first. The application owns them.
    virtual std::vector<Window*> windows() = 0;

    /// Brings the application in front of all others.
    virtual void activateIgnoringOtherApps() = 0;

    /// Calls the handler when any window of the application is about to close.
    virtual void onWindowWillClose(std::function<void()> handler) = 0;

    /// Tells which language the texts are in, by its two-letter code; the layout follows its
    /// writing direction.
    virtual void setLanguage(const std::string& languageCode) = 0;

    /// Names the one command in the menu of the application, which closes the main window; UTF-8.
    /// A desktop without such a menu does nothing.
    virtual void setCloseCommand(const std::string& name) = 0;

    /// Ends the process at once with that status, as the standard exit function does. Only a
    /// substitute returns.
    virtual void exit(int status) = 0;
};

} // namespace Vexora
