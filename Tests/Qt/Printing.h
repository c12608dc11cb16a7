// How failed comparisons show the toolkit's values. Every test that compares such values includes
// this, so that all agree.
#pragma once

#include <QColor>
#include <QRect>
#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QColor& color, std::ostream* stream) {
    *stream << color.name(QColor::HexArgb).toStdString();
}

inline void PrintTo(const QPoint& point, std::ostream* stream) {
    *stream << point.x() << ", " << point.y();
}

inline void PrintTo(const QSize& size, std::ostream* stream) {
    *stream << size.width() << " x " << size.height();
}

inline void PrintTo(const QRect& place, std::ostream* stream) {
    PrintTo(place.topLeft(), stream);
    *stream << ", ";
    PrintTo(place.size(), stream);
}
