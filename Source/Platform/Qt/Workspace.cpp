#include "Platform/Qt/Workspace.h"

#include "Platform/Qt/Conversions.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace Vexora {

QString nearestFolder(const QString& path) {
    QString folder = QFileInfo(path).absolutePath();
    while (!QFileInfo(folder).isDir() && folder != QDir::rootPath()) {
        folder = QFileInfo(folder).absolutePath();
    }
    return folder;
}

void QtWorkspace::selectFile(const std::string& path) {
    const QString file = toQString(path);
    const QUrl folder = QUrl::fromLocalFile(nearestFolder(file));
    if (!QFileInfo::exists(file)) {
        QDesktopServices::openUrl(folder);
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.FileManager1",
                                                       "/org/freedesktop/FileManager1",
                                                       "org.freedesktop.FileManager1", "ShowItems");
    call << QStringList(QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)) << QString();
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [folder](QDBusPendingCallWatcher* finished) {
                         if (finished->isError()) {
                             QDesktopServices::openUrl(folder);
                         }
                         finished->deleteLater();
                     });
}

void QtWorkspace::openUrl(const std::string& address) {
    QDesktopServices::openUrl(QUrl(toQString(address)));
}

} // namespace Vexora
