// How the desktop wants programs to draw. Main thread only.
#pragma once

#include <QDBusConnection>

#include <functional>

namespace Vexora {

struct Wishes {
    /// Whether things may move.
    bool motion = true;
};

/// Asks the desktop by way of a bus, which answers later, if at all.
void askForWishes(const QDBusConnection& bus, std::function<void(const Wishes&)> answer);

} // namespace Vexora
