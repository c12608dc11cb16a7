// Follows the life of the application: what happens once it has been launched, and when a window
// closes. Main thread only.
#pragma once

#include "Platform/Platform.h"

namespace Vexora {

class AppDelegate {
public:
    /// \param platform outlives the delegate, and the delegate outlives the event loop.
    explicit AppDelegate(Platform& platform) : platform_(platform) {}

    /// Brings the application to the front, centres the main window and watches for closing
    /// windows.
    void applicationDidFinishLaunching();

    /// There is nothing to do: leaving never waits for anything.
    void applicationWillTerminate() {}

    /// Ends the process at once with status 0, whichever window closes.
    void onWindowClose();

private:
    Platform& platform_;
};

} // namespace Vexora
