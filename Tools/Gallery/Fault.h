// What a check found wrong, in words for whoever mends it.
#pragma once

#include <QList>
#include <QString>

namespace Gallery {

struct Fault {
    /// The control, by its name in the interface definition.
    QString control;
    /// What is wrong with it, with figures.
    QString text;
};

using Faults = QList<Fault>;

} // namespace Gallery
