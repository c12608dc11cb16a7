// Keeps the desktop from going to sleep and from logging its user out. Main thread only.
#pragma once

#include <QDBusConnection>

#include <memory>

namespace Vexora {

/// Asks the desktop's portal on that bus, or else the system's login manager; without either, and where
/// it is not allowed, nothing happens. \param reason what the user may be told.
/// \return keeps the desktop awake until the last copy has gone, on whatever thread.
std::shared_ptr<QObject> keepAwake(const QDBusConnection& bus, const QString& reason);

} // namespace Vexora
