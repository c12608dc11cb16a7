#include "Platform/Qt/Awake.h"

#include "Platform/Qt/Bus.h"

#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusUnixFileDescriptor>

namespace Vexora {
namespace {

/// The portal's numbers for what is held off.
constexpr unsigned logOut = 1;
constexpr unsigned suspend = 4;

void askLoginManager(const std::shared_ptr<QObject>& awake, const QString& reason) {
    ask(QDBusConnection::systemBus(),
        callOf("org.freedesktop.login1", "/org/freedesktop/login1",
               "org.freedesktop.login1.Manager", "Inhibit",
               {"sleep:shutdown", reason, reason, "block"}),
        [awake](const QDBusMessage& answer) {
            // Who has the descriptor holds it off.
            const QDBusReply<QDBusUnixFileDescriptor> lock = answer;
            QObject::connect(awake.get(), &QObject::destroyed, [lock = lock.value()] {});
        });
}

} // namespace

std::shared_ptr<QObject> keepAwake(const QDBusConnection& bus, const QString& reason) {
    std::shared_ptr<QObject> awake(new QObject, [](QObject* last) { last->deleteLater(); });
    const QVariantMap options{{"reason", reason}};
    ask(bus,
        callOf(portal, portalPath, "org.freedesktop.portal.Inhibit", "Inhibit",
               {QString(), logOut | suspend, options}),
        [bus, awake, reason](const QDBusMessage& answer) {
            const QDBusReply<QDBusObjectPath> request = answer;
            if (request.isValid()) {
                const QDBusMessage close = callOf(portal, request.value().path(),
                                                  "org.freedesktop.portal.Request", "Close", {});
                QObject::connect(awake.get(), &QObject::destroyed,
                                 [bus, close] { bus.send(close); });
            } else if (awake.use_count() > 1) {
                askLoginManager(awake, reason);
            }
        });
    return awake;
}

} // namespace Vexora
