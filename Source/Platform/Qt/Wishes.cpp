#include "Platform/Qt/Wishes.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace Vexora {
namespace {

/// Groups of settings by their names, as the portal hands them out.
using Settings = QMap<QString, QVariantMap>;

constexpr auto appearance = "org.freedesktop.appearance";
constexpr auto gnome = "org.gnome.desktop.interface";
constexpr auto kde = "org.kde.kdeglobals.KDE";

Wishes wishesIn(const Settings& settings) {
    Wishes wishes;
    wishes.motion = settings[appearance]["reduced-motion"].toInt() != 1 &&
                    settings[gnome].value("enable-animations", true).toBool() &&
                    settings[kde].value("AnimationDurationFactor", 1.0).toDouble() != 0.0;
    return wishes;
}

} // namespace

void askForWishes(const QDBusConnection& bus, std::function<void(const Wishes&)> answer) {
    qDBusRegisterMetaType<Settings>();
    QDBusMessage call = QDBusMessage::createMethodCall(
        "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
        "org.freedesktop.portal.Settings", "ReadAll");
    call << QStringList{appearance, gnome, kde};
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), qApp);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, qApp,
                     [watcher, answer = std::move(answer)] {
                         const QDBusPendingReply<Settings> reply = *watcher;
                         if (reply.isValid()) {
                             answer(wishesIn(reply.value()));
                         }
                         watcher->deleteLater();
                     });
}

} // namespace Vexora
