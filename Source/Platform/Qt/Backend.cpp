#include "Platform/Backend.h"

#include "Platform/Posix/Environment.h"
#include "Platform/Posix/FileSystem.h"
#include "Platform/Posix/ProcessLauncher.h"
#include "Platform/Posix/Queues.h"
#include "Platform/Posix/Start.h"
#include "Platform/Posix/SystemLog.h"
#include "Platform/Qt/Accessibility.h"
#include "Platform/Qt/AdministratorScript.h"
#include "Platform/Qt/Application.h"
#include "Platform/Qt/Awake.h"
#include "Platform/Qt/Conversions.h"
#include "Platform/Qt/InterfaceLoader.h"
#include "Platform/Qt/MainQueue.h"
#include "Platform/Qt/PaperStyle.h"
#include "Platform/Qt/Picture.h"
#include "Platform/Qt/SingleInstance.h"
#include "Platform/Qt/TextLabel.h"
#include "Platform/Qt/Views.h"
#include "Platform/Qt/Wishes.h"
#include "Platform/Qt/Workspace.h"

#include <QApplication>

#include <fontconfig/fontconfig.h>

#include <cstdlib>
#include <future>

#include <locale.h>

namespace Vexora {
namespace {

/// The desktop as the program shows itself on it.
struct Desktop {
    Desktop(char** argv, const std::string& resources)
        : toolkit(argumentCount, argv), wishes(wishesIn(QApplication::palette())) {
        QApplication::setStyle(style);
        style->heed(wishes);
        QApplication::setDesktopFileName(VEXORA_IDENTIFIER);
        QIcon icon;
        for (const int size : {32, 64}) {
            icon.addPixmap(readPicture(resources + "/vexora-one-click-installer-" +
                                       std::to_string(size) + ".png"));
        }
        QApplication::setWindowIcon(icon);
        loadFonts(toQString(resources + "/Fonts"));
        installAccessibility();
    }

    /// The program's name alone: the toolkit would take options.
    int argumentCount = 1;
    QVariantMap start = startOfProgram();
    QApplication toolkit;
    Wishes wishes;
    PaperStyle* style = new PaperStyle;
};

/// The background queue, while whose blocks run the desktop stays awake.
class WakefulQueue : public BackgroundQueue {
public:
    explicit WakefulQueue(const QWidget& window) : window_(window) {}

    /// Main thread.
    void async(std::function<void()> block) override {
        auto awake = keepAwake(QDBusConnection::sessionBus(), window_.windowTitle());
        queue_.async([block = std::move(block), awake = std::move(awake)] { block(); });
    }

private:
    const QWidget& window_;
    PosixBackgroundQueue queue_;
};

/// Reads what typefaces there are. Numbers are read in a locale of the thread's own, since the main thread sets the
/// process's meanwhile.
void readTypefaces() {
    const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    uselocale(plain);
    FcInit();
    uselocale(LC_GLOBAL_LOCALE);
    freelocale(plain);
}

} // namespace

struct Backend::Parts {
    explicit Parts(char** argv)
        : desktop(argv, neededForStart(posixResourcePath)), interfaces(environment),
          administratorScript(processes, systemLog, {.runInstall = VEXORA_RUN_INSTALL}) {}

    PosixEnvironment environment;
    PosixFileSystem files;
    PosixProcessLauncher processes;
    PosixClock clock;
    PosixSystemLog systemLog;
    Desktop desktop;
    QtApplication application;
    WakefulQueue backgroundQueue{application.mainWindow()};
    QtInterfaceLoader interfaces;
    QtMainQueue mainQueue;
    QtWorkspace workspace{application};
    QtAdministratorScript administratorScript;
    Platform platform{application, interfaces, mainQueue,   backgroundQueue,     clock,
                      files,       processes,  environment, administratorScript, workspace,
                      systemLog};
};

void Backend::endWellAlways() {
    // The toolkit's last words, such as those about a missing display, end the process by a signal,
    // and those about a display of Wayland that went away at once.
    static QtMessageHandler print = nullptr;
    print = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& place, const QString& text) {
            print(type, place, text);
            if (type == QtFatalMsg || text.startsWith(QLatin1String("The Wayland connection "))) {
                std::_Exit(0);
            }
        });
    // And with 1 where the display goes away.
    ::on_exit(
        [](int status, void*) {
            if (status != 0) {
                std::_Exit(0);
            }
        },
        nullptr);
}

Backend::Backend(int /*argc*/, char** argv) {
    prepareProcess();
    // What typefaces there are is read, where there is a processor for it, while the display is met.
    const std::future<void> typefaces = std::async(readTypefaces);
    parts_ = std::make_unique<Parts>(argv);
}

Backend::~Backend() = default;

Platform& Backend::platform() {
    return parts_->platform;
}

int Backend::run(View& content, const std::function<void()>& didFinishLaunching) {
    QtWindow& window = parts_->application.mainWindow();
    SingleInstance instance(QDBusConnection::sessionBus(), window);
    if (const auto* root = dynamic_cast<WidgetOwner*>(&content)) {
        window.setContent(root->widget());
    }
    askForWishes(QDBusConnection::sessionBus(), parts_->desktop.wishes,
                 [this](const Wishes& wishes) { parts_->desktop.style->heed(wishes); });
    // X11 takes the identifier from the application's name, once; to assistive tools the name stays the program's own.
    QApplication::setApplicationName(VEXORA_IDENTIFIER);
    window.winId();
    QApplication::setApplicationName({});
    if (instance.isLeftToAnother(parts_->desktop.start)) {
        parts_->application.exit(0);
    }
    window.show();
    didFinishLaunching();
    return QApplication::exec();
}

} // namespace Vexora
