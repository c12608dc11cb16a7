#include "Platform/Qt/Workspace.h"

#include "Platform/Posix/Descriptor.h"
#include "Platform/Qt/Application.h"
#include "Platform/Qt/Bus.h"
#include "Platform/Qt/Conversions.h"

#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace Vexora {
namespace {

/// Asks over the session bus. \param otherwise what to do where nobody does it.
void askOr(const std::function<void()>& otherwise, const QDBusMessage& call) {
    ask(QDBusConnection::sessionBus(), call, [otherwise](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ErrorMessage) {
            otherwise();
        }
    });
}

} // namespace

QString nearestFolder(const QString& path) {
    QString folder = QFileInfo(path).absolutePath();
    while (!QFileInfo(folder).isDir() && folder != QDir::rootPath()) {
        folder = QFileInfo(folder).absolutePath();
    }
    return folder;
}

void QtWorkspace::selectFile(const std::string& path) {
    const QString file = toQString(path);
    const auto openFolder = [folder = QUrl::fromLocalFile(nearestFolder(file))] {
        QDesktopServices::openUrl(folder);
    };
    if (!QFileInfo::exists(file)) {
        openFolder();
        return;
    }
    const QString token = application_.startupId();
    const auto askPortal = [path, token, openFolder] {
        const PosixDescriptor opened = openDescriptor(path, O_PATH);
        if (!opened.isOpen()) {
            openFolder();
            return;
        }
        const auto shared = QVariant::fromValue(QDBusUnixFileDescriptor(opened.value()));
        const QVariantMap options{{"activation_token", token}};
        askOr(openFolder, callOf(portal, portalPath, "org.freedesktop.portal.OpenURI",
                                 "OpenDirectory", {QString(), shared, options}));
    };
    const QStringList addresses(QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded));
    askOr(askPortal, callOf("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                            "org.freedesktop.FileManager1", "ShowItems", {addresses, token}));
}

void QtWorkspace::openUrl(const std::string& address) {
    QDesktopServices::openUrl(QUrl(toQString(address)));
}

} // namespace Vexora
