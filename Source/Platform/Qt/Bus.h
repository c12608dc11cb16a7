// Calls of other programs over a bus. Main thread only.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

namespace Vexora {

/// The desktop's portal and its object.
inline constexpr auto portal = "org.freedesktop.portal.Desktop";
inline constexpr auto portalPath = "/org/freedesktop/portal/desktop";

QDBusMessage callOf(const QString& program, const QString& path, const QString& interface,
                    const QString& method, const QVariantList& arguments);

/// Sends a call and hands on its answer, later; at once an error where there is no bus.
void ask(const QDBusConnection& bus, const QDBusMessage& call,
         std::function<void(const QDBusMessage&)> answer);

} // namespace Vexora
