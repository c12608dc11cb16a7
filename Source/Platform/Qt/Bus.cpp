#include "Platform/Qt/Bus.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>

namespace Vexora {

QDBusMessage callOf(const QString& program, const QString& path, const QString& interface,
                    const QString& method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(program, path, interface, method);
    call.setArguments(arguments);
    return call;
}

void ask(const QDBusConnection& bus, const QDBusMessage& call,
         std::function<void(const QDBusMessage&)> answer) {
    if (!bus.isConnected()) {
        // The toolkit would not answer.
        answer(QDBusMessage::createError(QDBusError::Disconnected, {}));
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), qApp);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, answer = std::move(answer)] {
                         answer(watcher->reply());
                         watcher->deleteLater();
                     });
}

} // namespace Vexora
