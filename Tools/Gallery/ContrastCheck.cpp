#include "ContrastCheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>

namespace Gallery {
namespace {

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(static_cast<double>(color.redF())) +
           0.7152 * linear(static_cast<double>(color.greenF())) +
           0.0722 * linear(static_cast<double>(color.blueF()));
}

/// The pixels of a piece of text.
struct Sample {
    /// Colours that no ink touches, and how often each is there.
    std::map<QRgb, int> behind;
    int behindCount = 0;
    /// The largest part of a pixel that ink covers, of 255, and the colours there.
    int coverage = 0;
    std::array<double, 3> inkSum{};
    int inkCount = 0;

    void add(int covered, QRgb color) {
        if (covered == 0) {
            ++behind[color];
            ++behindCount;
        }
        if (covered == 0 || covered < coverage) {
            return;
        }
        if (covered > coverage) {
            coverage = covered;
            inkSum = {};
            inkCount = 0;
        }
        inkSum[0] += qRed(color);
        inkSum[1] += qGreen(color);
        inkSum[2] += qBlue(color);
        ++inkCount;
    }

    /// The ink's colour: where it does not cover a whole pixel, what shows through is taken out.
    QColor ink(QRgb under) const {
        const double part = coverage / 255.0;
        const auto component = [&](std::size_t index, int below) {
            const double seen = inkSum.at(index) / inkCount;
            return std::clamp(qRound((seen - below * (1.0 - part)) / part), 0, 255);
        };
        return {component(0, qRed(under)), component(1, qGreen(under)), component(2, qBlue(under))};
    }
};

Sample sampleOf(const PaintedText& painted, const PaintedPiece& piece, const QImage& picture) {
    const QWidget& widget = *painted.widget;
    const qreal ratio = picture.devicePixelRatio();
    const QPointF origin = widget.mapTo(widget.window(), QPoint(0, 0));
    const QRectF visible = piece.rect & QRectF(shownRegionOf(widget).boundingRect());
    const QRect pixels =
        QRectF((visible.topLeft() + origin) * ratio, visible.size() * ratio).toAlignedRect() &
        picture.rect();
    // The same pixels of the ink, which begins its margin before the widget.
    const QPoint offset = painted.inkPixel(-origin);
    Sample sample;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const QPoint ink = QPoint(x, y) + offset;
            if (painted.ink.valid(ink)) {
                sample.add(painted.ink.constScanLine(ink.y())[ink.x()], picture.pixel(x, y));
            }
        }
    }
    return sample;
}

/// The least contrast of the ink to what is behind it, leaving out single pixels there.
std::optional<std::pair<double, QString>> leastContrastIn(const Sample& sample) {
    std::optional<std::pair<double, QString>> least;
    for (const auto& [color, count] : sample.behind) {
        if (count * 50 < sample.behindCount) {
            continue;
        }
        const QColor ink = sample.ink(color);
        const double ratio = contrast(ink, QColor(color));
        if (!least || ratio < least->first) {
            least = {ratio, QString("%1 on %2").arg(ink.name(), QColor(color).name())};
        }
    }
    return least;
}

} // namespace

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

Faults checkContrast(const PaintedText& painted, const QImage& picture) {
    Faults faults;
    for (const PaintedPiece& piece : painted.pieces) {
        const Sample sample = sampleOf(painted, piece, picture);
        if (piece.text.trimmed().isEmpty() || sample.inkCount == 0) {
            continue;
        }
        const auto least = leastContrastIn(sample);
        if (!least || least->first < leastContrast) {
            const QString figures = least ? QString("%1, a contrast of %2:1")
                                                .arg(least->second)
                                                .arg(least->first, 0, 'f', 2)
                                          : "nothing that could be told from the ink";
            faults.append({nameOf(*painted.widget),
                           QString("\"%1\" is drawn in %2").arg(piece.text, figures)});
        }
    }
    return faults;
}

} // namespace Gallery
