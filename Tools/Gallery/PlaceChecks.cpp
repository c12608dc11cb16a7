#include "PlaceChecks.h"

#include "Platform/Qt/Pane.h"
#include "Words.h"

#include <QProgressBar>
#include <QTextEdit>

#include <algorithm>

namespace Gallery {
namespace {

/// How far the mirror image may be off, in pixels of the layout: centring rounds once, and shaping
/// rounds every piece of a text.
constexpr qreal placeTolerance = 1.0;
constexpr qreal textTolerance = 3.0;

QRect placeOf(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
}

/// What a person sees as a thing of its own: neither an area that holds others, nor a part of one.
bool isControl(const QWidget& widget) {
    return widget.isVisible() && qobject_cast<const Vexora::Pane*>(&widget) == nullptr;
}

/// A text area has a direction of its own, and its scroll bar follows it.
bool isInTextArea(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return parent != nullptr &&
           (qobject_cast<const QTextEdit*>(parent) != nullptr || isInTextArea(*parent));
}

bool areFamily(const QWidget& one, const QWidget& other) {
    return one.isAncestorOf(&other) || other.isAncestorOf(&one);
}

bool mirrorsSideways(const QRectF& rect, const QRectF& original, int width, qreal tolerance) {
    return qAbs(rect.left() - (width - original.right())) <= tolerance &&
           qAbs(rect.right() - (width - original.left())) <= tolerance;
}

bool keepsItsHeight(const QRectF& rect, const QRectF& original) {
    return qAbs(rect.top() - original.top()) <= placeTolerance &&
           qAbs(rect.bottom() - original.bottom()) <= placeTolerance;
}

/// The part of pixels that clearly differ.
double difference(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) {
        return 1.0;
    }
    int differing = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            differing += qAbs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 16 ? 1 : 0;
        }
    }
    return static_cast<double>(differing) / (one.width() * one.height());
}

Faults checkMirrored(const Place& mirrored, const Place& original, int width) {
    const auto fault = [&](const QString& what, const QRectF& place, const QRectF& origin) {
        return Fault{mirrored.control, QString("%1 at %2 is no mirror image of %3 in a window of "
                                               "width %4")
                                           .arg(what, words(place), words(origin))
                                           .arg(width)};
    };
    Faults faults;
    const QRectF rect = mirrored.rect.toRectF();
    const QRectF from = original.rect.toRectF();
    if (!mirrorsSideways(rect, from, width, placeTolerance) || !keepsItsHeight(rect, from)) {
        faults.append(fault("the control", rect, from));
    }
    // How tall a text is depends on the sign that a mark has in each direction.
    if (mirrored.text.isNull() != original.text.isNull() ||
        (!mirrored.text.isNull() &&
         !mirrorsSideways(mirrored.text, original.text, width, textTolerance))) {
        faults.append(fault("the text", mirrored.text, original.text));
    }
    const double bars = difference(mirrored.bar, original.bar.mirrored(true, false));
    if (!mirrored.bar.isNull() && bars > 0.02) {
        faults.append({mirrored.control, QString("the bar fills from the wrong side: %1 % of its "
                                                 "pixels are not mirrored")
                                             .arg(qRound(bars * 100.0))});
    }
    return faults;
}

} // namespace

Faults checkApart(QWidget& window, const QList<PaintedText>& texts) {
    Faults faults;
    const auto widgets = window.findChildren<QWidget*>();
    for (const PaintedText& text : texts) {
        for (const QWidget* other : widgets) {
            const bool seenBefore =
                std::ranges::any_of(texts, [other, &text](const PaintedText& painted) {
                    return painted.widget == other && painted.widget < text.widget;
                });
            if (other == text.widget || seenBefore || !isControl(*other) ||
                areFamily(*other, *text.widget)) {
                continue;
            }
            const QRect common = placeOf(*other) & placeOf(*text.widget);
            if (!common.isEmpty()) {
                faults.append(
                    {nameOf(*text.widget), QString("shares %1 of the window with %2")
                                               .arg(words(common.toRectF()), nameOf(*other))});
            }
        }
    }
    return faults;
}

Faults checkSize(const QSize& window, const QSize& defined) {
    if (window == defined) {
        return {};
    }
    return {{"window", QString("is %1 x %2, but its definition says %3 x %4")
                           .arg(window.width())
                           .arg(window.height())
                           .arg(defined.width())
                           .arg(defined.height())}};
}

Places placesIn(QWidget& window, const QList<PaintedText>& texts) {
    Places places{window.width(), {}};
    const auto widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (!widget->isVisible() || isInTextArea(*widget)) {
            continue;
        }
        Place place{nameOf(*widget), placeOf(*widget), {}, {}};
        const auto painted = std::ranges::find_if(
            texts, [widget](const PaintedText& text) { return text.widget == widget; });
        if (painted != texts.end()) {
            place.text = painted->rect().translated(place.rect.topLeft());
        }
        if (qobject_cast<const QProgressBar*>(widget) != nullptr) {
            place.bar = widget->grab().toImage();
        }
        places.places.append(place);
    }
    return places;
}

Faults checkMirrored(const Places& rightToLeft, const Places& leftToRight) {
    if (rightToLeft.windowWidth != leftToRight.windowWidth ||
        rightToLeft.places.size() != leftToRight.places.size()) {
        return {
            {"window", QString("%1 controls in a width of %2 from right to left, but %3 in %4 from "
                               "left to right")
                           .arg(rightToLeft.places.size())
                           .arg(rightToLeft.windowWidth)
                           .arg(leftToRight.places.size())
                           .arg(leftToRight.windowWidth)}};
    }
    Faults faults;
    for (qsizetype index = 0; index < rightToLeft.places.size(); ++index) {
        faults += checkMirrored(rightToLeft.places.at(index), leftToRight.places.at(index),
                                rightToLeft.windowWidth);
    }
    return faults;
}

} // namespace Gallery
