#include "Platform/Qt/SingleInstance.h"

#include "Platform/Qt/Bus.h"

#include <QApplication>
#include <QDBusReply>

namespace Vexora {
namespace {

constexpr auto identifier = VEXORA_IDENTIFIER;
constexpr auto activationToken = "activation-token";

/// The bus's numbers: for who does not wait until a name is free, and for a name that another has.
constexpr unsigned doNotQueue = 4;
constexpr unsigned exists = 3;

/// Where the bus finds the program.
QString objectPath() {
    return '/' + QString(identifier).replace('.', '/');
}

QDBusMessage requestOfName(unsigned flags) {
    return callOf("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                  "RequestName", {identifier, flags});
}

} // namespace

QVariantMap startOfProgram() {
    return {{"desktop-startup-id", qEnvironmentVariable("DESKTOP_STARTUP_ID")},
            {activationToken, qEnvironmentVariable("XDG_ACTIVATION_TOKEN")}};
}

SingleInstance::SingleInstance(const QDBusConnection& bus, QWidget& window, int patience)
    : bus_(bus), window_(window), patience_(patience), name_(QDBusPendingCall::fromError({})) {
    // Before the name: who finds that calls.
    bus_.registerObject(objectPath(), this, QDBusConnection::ExportAllSlots);
    name_ = bus_.asyncCall(requestOfName(doNotQueue), patience_);
}

bool SingleInstance::isLeftToAnother(const QVariantMap& start) {
    name_.waitForFinished();
    if (QDBusReply<unsigned>(name_.reply()).value() != exists) {
        return false;
    }
    QDBusPendingCall raised = bus_.asyncCall(
        callOf(identifier, objectPath(), "org.freedesktop.Application", "Activate", {start}),
        patience_);
    raised.waitForFinished();
    if (raised.isError()) {
        // Once the other has ended, the name is this program's.
        bus_.send(requestOfName(0));
    } else if (QGuiApplication::platformName() == "xcb") {
        // With its first window the toolkit ends what the desktop shows while a program starts.
        QWidget unseen(nullptr, Qt::X11BypassWindowManagerHint);
        unseen.setGeometry(-1, -1, 1, 1);
        unseen.show();
    }
    return !raised.isError();
}

void SingleInstance::Activate(const QVariantMap& start) {
    if (QGuiApplication::platformName().startsWith("wayland")) {
        // Where the toolkit looks for it.
        qputenv("XDG_ACTIVATION_TOKEN", start[activationToken].toByteArray());
    }
    window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    // On X11 the toolkit asks with the time at which something last befell the window. Asking with an
    // older one than that of another window's last press is in vain.
    window_.setWindowIcon(QApplication::windowIcon());
    QGuiApplication::sync();
    window_.raise();
    window_.activateWindow();
}

} // namespace Vexora
