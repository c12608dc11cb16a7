#include "Platform/Backend.h"

#include "Platform/AppKit/AdministratorScript.h"
#include "Platform/AppKit/Application.h"
#include "Platform/AppKit/Environment.h"
#include "Platform/AppKit/Handler.h"
#include "Platform/AppKit/InterfaceLoader.h"
#include "Platform/AppKit/MainQueue.h"
#include "Platform/AppKit/Queues.h"
#include "Platform/AppKit/SystemLog.h"
#include "Platform/AppKit/Views.h"
#include "Platform/AppKit/Workspace.h"
#include "Platform/Posix/FileSystem.h"
#include "Platform/Posix/ProcessLauncher.h"
#include "Platform/Posix/Start.h"

namespace Vexora {
namespace {

/// Tells the toolkit of threads before the first one that it did not start itself: otherwise that
/// one changes the toolkit's locks under the event loop, and the window is never painted again.
void beMultithreaded() {
    [NSThread detachNewThreadSelector:@selector(self) toTarget:[NSThread class] withObject:nil];
}

/// The desktop as the program shows itself on it.
struct Desktop {
    Desktop() {
        beMultithreaded();
        [NSApplication sharedApplication];
        leaveEndedProgramsAlone();
    }

    AutoreleaseScope scope;
};

} // namespace

struct Backend::Parts {
    Desktop desktop;
    AppKitEnvironment environment;
    PosixFileSystem files;
    PosixProcessLauncher processes;
    PosixClock clock;
    AppKitBackgroundQueue backgroundQueue;
    AppKitSystemLog systemLog;
    AppKitApplication application;
    AppKitInterfaceLoader interfaces{environment};
    AppKitMainQueue mainQueue;
    AppKitWorkspace workspace;
    AppKitAdministratorScript administratorScript;
    Platform platform{application, interfaces, mainQueue,   backgroundQueue,     clock,
                      files,       processes,  environment, administratorScript, workspace,
                      systemLog};
};

void Backend::endWellAlways() {
    // A Mac's display is always there.
}

Backend::Backend(int /*argc*/, char** /*argv*/) {
    prepareProcess();
    parts_ = std::make_unique<Parts>();
}

Backend::~Backend() = default;

Platform& Backend::platform() {
    return parts_->platform;
}

int Backend::run(View& content, const std::function<void()>& didFinishLaunching) {
    AppKitWindow& window = parts_->application.mainWindow();
    if (const auto* root = dynamic_cast<WidgetOwner*>(&content)) {
        window.setContent(root->widget());
    }
    [window.window() makeKeyAndOrderFront:nil];
    const Strong<VexoraHandler> launched = makeHandler(didFinishLaunching);
    [[NSNotificationCenter defaultCenter] addObserver:launched
                                             selector:@selector(handle:)
                                                 name:NSApplicationDidFinishLaunchingNotification
                                               object:nil];
    [NSApp run];
    return 0;
}

} // namespace Vexora
