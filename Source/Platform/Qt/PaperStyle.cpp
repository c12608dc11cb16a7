#include "Platform/Qt/PaperStyle.h"

#include "Platform/Qt/Palette.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>

namespace Vexora {
namespace {

/// The room that a focus ring takes on each side of a button, in pixels.
constexpr qreal ringRoom = 3.0;
constexpr qreal cornerRadius = 7.0;
constexpr qreal trackHeight = 10.0;
constexpr qreal sheenWidth = 40.0;

bool isHelpButton(const QWidget* widget) {
    return widget != nullptr && widget->property("help").toBool();
}

QColor outlineIn(const QStyleOption& option) {
    return option.palette.color(QPalette::Dark);
}

bool showsFocus(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

QColor buttonFill(const QStyleOptionButton& option) {
    const bool primary = option.features.testFlag(QStyleOptionButton::DefaultButton);
    if (option.state.testFlag(QStyle::State_Sunken)) {
        return primary ? Palette::bluePressed : Palette::sheetPressed;
    }
    if (option.state.testFlag(QStyle::State_MouseOver)) {
        return primary ? Palette::blueHover : Palette::sheetHover;
    }
    return primary ? Palette::blue : Palette::sheet;
}

void drawButton(const QStyleOptionButton& option, QPainter& painter, bool round) {
    const bool primary = option.features.testFlag(QStyleOptionButton::DefaultButton);
    QRectF body = QRectF(option.rect).adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom);
    qreal radius = cornerRadius;
    if (round) {
        const qreal side = qMin(body.width(), body.height());
        body = QRectF(body.center() - QPointF(side, side) / 2, QSizeF(side, side));
        radius = side / 2;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(buttonFill(option));
    const bool contrast = PaperStyle::hasContrast(option.palette);
    const qreal outline = contrast ? 2.0 : primary ? 0.0 : 1.0;
    painter.setPen(outline > 0.0 ? QPen(outlineIn(option), outline) : QPen(Qt::NoPen));
    const qreal half = outline / 2;
    const QRectF edge = body.adjusted(half, half, -half, -half);
    painter.drawRoundedRect(edge, radius, radius);
    if (showsFocus(option)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Palette::blue, 2.0));
        painter.drawRoundedRect(body.adjusted(-2.0, -2.0, 2.0, 2.0), radius + 2.0, radius + 2.0);
    }
    painter.restore();
}

void drawHelpMark(const QStyleOptionButton& option, QPainter& painter) {
    painter.save();
    QFont font = painter.font();
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(Palette::bluePressed);
    const bool mirrored = option.direction == Qt::RightToLeft;
    painter.drawText(option.rect, Qt::AlignCenter, mirrored ? QString(QChar(0x061f)) : "?");
    painter.restore();
}

/// A full bar carries it at its end, whichever way the bar runs.
void drawCheckMark(const QRectF& place, const QColor& paper, QPainter& painter) {
    painter.setBrush(paper);
    painter.setPen(QPen(Palette::done, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawEllipse(place.adjusted(1.5, 1.5, -1.5, -1.5));
    const auto at = [&](qreal across, qreal down) {
        return place.topLeft() + QPointF(across * place.width(), down * place.height());
    };
    painter.drawPolyline(QPolygonF({at(0.29, 0.52), at(0.44, 0.67), at(0.71, 0.36)}));
}

/// A light on its way over what is done.
void drawSheen(const QRectF& filled, qreal way, QPainter& painter) {
    QLinearGradient light(filled.left() + (filled.width() + 2 * sheenWidth) * way - 2 * sheenWidth,
                          0.0, 0.0, 0.0);
    light.setFinalStop(light.start() + QPointF(2 * sheenWidth, 0.0));
    light.setStops({{0.0, QColor(255, 255, 255, 0)},
                    {0.5, QColor(255, 255, 255, 120)},
                    {1.0, QColor(255, 255, 255, 0)}});
    painter.fillRect(filled, light);
}

/// \param sheen how far a light is on its way over the bar; null without one.
void drawProgressBar(const QStyleOptionProgressBar& option, const QVariant& sheen,
                     QPainter& painter) {
    const bool fromRight = option.direction == Qt::RightToLeft;
    const QRectF room(option.rect);
    QRectF track(0.0, 0.0, room.width(), trackHeight);
    track.moveCenter(room.center());
    const qreal radius = track.height() / 2;
    const qreal range = qMax(1, option.maximum - option.minimum);
    const qreal part = qBound(0.0, (option.progress - option.minimum) / range, 1.0);
    QRectF filled = track;
    filled.setWidth(track.width() * part);
    if (fromRight) {
        filled.moveRight(track.right());
    }
    QPainterPath outline;
    outline.addRoundedRect(track, radius, radius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, Palette::track);
    painter.setClipPath(outline);
    QPainterPath bar;
    bar.addRoundedRect(filled, radius, radius);
    painter.fillPath(bar, Palette::blue);
    if (sheen.isValid()) {
        painter.setClipPath(bar, Qt::IntersectClip);
        drawSheen(filled, fromRight ? 1.0 - sheen.toDouble() : sheen.toDouble(), painter);
    }
    painter.setClipping(false);
    // The track itself is too light to tell how much is left.
    painter.setPen(QPen(part < 1.0 ? outlineIn(option) : Palette::blue, 1.0));
    painter.drawRoundedRect(track.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    if (part == 1.0) {
        QRectF mark(room.topLeft(), QSizeF(room.height(), room.height()));
        mark.moveLeft(fromRight ? room.left() : room.right() - mark.width());
        drawCheckMark(mark, option.palette.color(QPalette::Window), painter);
    }
    painter.restore();
}

void drawScrollBar(const QStyleOptionSlider& option, const QRect& slider, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(option.state.testFlag(QStyle::State_Sunken) ? Palette::blue
                                                                 : outlineIn(option));
    const QRectF knob = QRectF(slider).adjusted(3.0, 3.0, -3.0, -3.0);
    const qreal radius = qMin(knob.width(), knob.height()) / 2;
    painter.drawRoundedRect(knob, radius, radius);
    painter.restore();
}

} // namespace

PaperStyle::PaperStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QPalette PaperStyle::paperPalette(bool contrast) {
    const QColor ink = contrast ? Qt::black : Palette::ink;
    const QColor outline = contrast ? Qt::black : Palette::outline;
    QPalette palette(ink, Palette::sheet, Palette::sheet, outline, outline, ink, Palette::sheet,
                     Palette::sheet, contrast ? Palette::sheet : Palette::paper);
    palette.setColor(QPalette::Highlight, Palette::blue);
    palette.setColor(QPalette::HighlightedText, Palette::inkOnBlue);
    palette.setColor(QPalette::Link, Palette::blue);
    return palette;
}

bool PaperStyle::hasContrast(const QPalette& palette) {
    return palette.color(QPalette::WindowText) == Qt::black;
}

void PaperStyle::heed(const Wishes& wishes) {
    wishes_ = wishes;
    QApplication::setPalette(paperPalette(wishes.contrast));
}

void PaperStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        if (element == CE_PushButtonBevel) {
            drawButton(*button, *painter, isHelpButton(widget));
            return;
        }
        if (element == CE_PushButtonLabel && isHelpButton(widget)) {
            drawHelpMark(*button, *painter);
            return;
        }
        if (element == CE_PushButtonLabel &&
            button->features.testFlag(QStyleOptionButton::DefaultButton)) {
            QStyleOptionButton onBlue(*button);
            onBlue.palette.setColor(QPalette::ButtonText, Palette::inkOnBlue);
            QProxyStyle::drawControl(element, &onBlue, painter, widget);
            return;
        }
    }
    if (element == CE_ProgressBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
            drawProgressBar(*bar, widget == nullptr ? QVariant() : widget->property("sheen"),
                            *painter);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void PaperStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    if (element == PE_FrameFocusRect) {
        // Buttons and links draw their own ring.
        return;
    }
    if (element == PE_Frame) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(showsFocus(*option) ? Palette::blue : outlineIn(*option), 1.0));
        painter->setBrush(Palette::sheet);
        painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 4.0, 4.0);
        painter->restore();
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PaperStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider != nullptr) {
        const QRect knob = subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget);
        drawScrollBar(*slider, knob, *painter);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect PaperStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr || bar->orientation != Qt::Vertical) {
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
    // No arrows: the knob has the whole length to itself.
    const int length = bar->rect.height();
    const int steps = bar->maximum - bar->minimum;
    const int whole = qMax(1, steps + bar->pageStep);
    const int knob = qBound(qMin(32, length), length * bar->pageStep / whole, length);
    const int offset = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                               length - knob, bar->upsideDown);
    const int left = bar->rect.left();
    const int top = bar->rect.top();
    const int width = bar->rect.width();
    switch (part) {
    case SC_ScrollBarGroove:
        return bar->rect;
    case SC_ScrollBarSlider:
        return {left, top + offset, width, knob};
    case SC_ScrollBarSubPage:
        return {left, top, width, offset};
    case SC_ScrollBarAddPage:
        return {left, top + offset + knob, width, length - offset - knob};
    default:
        return {};
    }
}

QRect PaperStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    if (element == SE_PushButtonContents) {
        // Inside the ring and the outline, and beside the rounding of the corners.
        return option->rect.adjusted(8, 4, -8, -4);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QSize PaperStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                   const QSize& contents, const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_PushButton) {
        // Not by the text: buttons in a row are of one height, whatever fonts stand in for theirs.
        size.setHeight(qMax(46, option->fontMetrics.height() + 12));
        if (isHelpButton(widget)) {
            size.setWidth(size.height());
        }
    }
    return size;
}

int PaperStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_ButtonMargin:
        return 24;
    case PM_DefaultFrameWidth:
        return 2;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int PaperStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* more) const {
    if (hint == SH_Widget_Animation_Duration && !wishes_.motion) {
        return 0;
    }
    return QProxyStyle::styleHint(hint, option, widget, more);
}

} // namespace Vexora
