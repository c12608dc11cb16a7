// What a widget really paints as text: every piece with its place, and which pixels its ink covers.
// Main thread only.
#pragma once

#include <QImage>
#include <QList>
#include <QRectF>
#include <QString>
#include <QWidget>

namespace Gallery {

/// A piece of text as it was handed to the paint engine.
struct PaintedPiece {
    QString text;
    /// From the ascent to the descent, in the widget's coordinates.
    QRectF rect;
    /// How far down its letters stand, in the same coordinates.
    qreal baseline = 0.0;
};

struct PaintedText {
    QWidget* widget = nullptr;
    QList<PaintedPiece> pieces;
    /// How much of each pixel the ink covers, from the widget's origin less `margin`.
    QImage ink;

    /// What ink may reach beyond the widget and still be seen here, in the widget's coordinates.
    static constexpr int margin = 40;

    /// All pieces together, without blanks.
    QString characters() const;
    /// The rectangle of all pieces.
    QRectF rect() const;
    /// The rectangle of all ink, in the widget's coordinates; null without any.
    QRectF inkRect() const;
    /// Where a point of the widget lies in `ink`.
    QPoint inkPixel(QPointF point) const;
};

/// Lets a widget paint, its children not included.
PaintedText textPaintedBy(QWidget& widget);

/// All widgets in the window that can be seen and paint or hold text.
QList<PaintedText> textsIn(QWidget& window);

/// The part of a widget that can be seen: what neither its own mask nor one around it, nor an
/// opaque neighbour takes away.
QRegion shownRegionOf(const QWidget& widget);

/// The text that a label or button holds, as it should be seen; nothing for other controls, and for
/// those that the style draws a mark on.
QString textHeldBy(const QWidget& widget);

/// The text in the order in which it is read, as far as the control tells; of a text area the whole.
QString readTextOf(const PaintedText& painted);

/// The name of a control in its definition; that of the area around it for what a control is made
/// of.
QString nameOf(const QWidget& widget);

} // namespace Gallery
