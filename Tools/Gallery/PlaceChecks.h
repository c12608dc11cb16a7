// Whether the window keeps its size, whether controls keep apart, and whether a layout from right to
// left is the mirror image of the one from left to right. Main thread only.
#pragma once

#include "Fault.h"
#include "PaintedText.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QSize>

namespace Gallery {

/// Controls that share pixels of the window with a text.
/// \param texts all that are painted in the window.
Faults checkApart(QWidget& window, const QList<PaintedText>& texts);

/// A window that its content has made larger than its definition says.
Faults checkSize(const QSize& window, const QSize& defined);

/// Where a control is in its window.
struct Place {
    QString control;
    QRect rect;
    /// Where the text in it is, in the window; null without one, and for text that scrolls, which
    /// has a direction of its own.
    QRectF text;
    /// How a progress bar looks.
    QImage bar;
};

/// The places of all that can be seen in a window, in an order that the direction does not change.
struct Places {
    int windowWidth = 0;
    QList<Place> places;
};

Places placesIn(QWidget& window, const QList<PaintedText>& texts);

/// What is not where the mirror shows it. Both have the same texts in the same state.
Faults checkMirrored(const Places& rightToLeft, const Places& leftToRight);

} // namespace Gallery
