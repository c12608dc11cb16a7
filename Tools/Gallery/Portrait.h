// One scene in one language: its picture, and what the checks find in it. Main thread only.
#pragma once

#include "Fault.h"
#include "Languages.h"
#include "Scenes.h"

#include <QImage>

namespace Gallery {

struct Portrait {
    /// The whole window, as dense as the display.
    QImage picture;
    /// The window's title.
    QString title;
    Faults faults;
    /// What is wrong only where the screen is small.
    Faults faultsWhenSmall;
};

/// Brings the installer into the scene and measures what it shows.
Portrait portray(const Language& language, const Scene& scene);

/// The faults of all checks that look at one window alone.
Faults checkWindow(QWidget& window);

} // namespace Gallery
