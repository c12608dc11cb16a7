// How the desktop wants programs to draw. Main thread only.
#pragma once

#include <QDBusConnection>
#include <QPalette>

#include <functional>

namespace Vexora {

struct Wishes {
    /// Whether things may move.
    bool motion = true;
    /// Whether text and borders are to stand out as much as can be.
    bool contrast = false;
};

/// What a desktop's colours tell: it wants contrast when they are as good as black and white.
Wishes wishesIn(const QPalette& colors);

/// Asks the desktop by way of a bus, which answers later, if at all, with what is known already and
/// what it says itself.
void askForWishes(const QDBusConnection& bus, const Wishes& known,
                  std::function<void(const Wishes&)> answer);

} // namespace Vexora
