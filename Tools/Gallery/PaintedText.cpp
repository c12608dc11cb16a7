#include "PaintedText.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QRegularExpression>
#include <QTextEdit>

namespace Gallery {
namespace {

/// Keeps text and lets everything else go.
class TextEngine : public QPaintEngine {
public:
    explicit TextEngine(PaintedText& painted) : QPaintEngine(AllFeatures), painted_(painted) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    Type type() const override { return User; }

    void drawTextItem(const QPointF& point, const QTextItem& item) override {
        const QTransform place = painter()->deviceTransform();
        const QRectF rect(point.x(), point.y() - item.ascent(), item.width(),
                          item.ascent() + item.descent());
        painted_.pieces.append({item.text(), place.mapRect(rect), place.map(point).y()});
        QPainter ink(&painted_.ink);
        ink.setRenderHints(painter()->renderHints());
        ink.translate(PaintedText::margin, PaintedText::margin);
        ink.setTransform(place, true);
        ink.drawTextItem(point, item);
    }

    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {
    }

private:
    PaintedText& painted_;
};

/// A page without pixels, as large and as dense as the widget.
class TextDevice : public QPaintDevice {
public:
    TextDevice(const QWidget& widget, PaintedText& painted) : widget_(widget), engine_(painted) {}

    QPaintEngine* paintEngine() const override { return &engine_; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return widget_.width();
        case PdmHeight:
            return widget_.height();
        case PdmWidthMM:
            return widget_.widthMM();
        case PdmHeightMM:
            return widget_.heightMM();
        case PdmDpiX:
            return widget_.logicalDpiX();
        case PdmDpiY:
            return widget_.logicalDpiY();
        case PdmPhysicalDpiX:
            return widget_.physicalDpiX();
        case PdmPhysicalDpiY:
            return widget_.physicalDpiY();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget& widget_;
    mutable TextEngine engine_;
};

} // namespace

QString PaintedText::characters() const {
    QString all;
    for (const PaintedPiece& piece : pieces) {
        all += piece.text;
    }
    all.removeIf([](QChar character) { return character.isSpace(); });
    return all;
}

QRectF PaintedText::rect() const {
    QRectF all;
    for (const PaintedPiece& piece : pieces) {
        all = all.united(piece.rect);
    }
    return all;
}

QRectF PaintedText::inkRect() const {
    QRect pixels;
    for (int y = 0; y < ink.height(); ++y) {
        const uchar* line = ink.constScanLine(y);
        for (int x = 0; x < ink.width(); ++x) {
            if (line[x] != 0) {
                pixels |= QRect(x, y, 1, 1);
            }
        }
    }
    if (pixels.isEmpty()) {
        return {};
    }
    const qreal ratio = ink.devicePixelRatio();
    return QRectF(pixels.x() / ratio - margin, pixels.y() / ratio - margin, pixels.width() / ratio,
                  pixels.height() / ratio);
}

QPoint PaintedText::inkPixel(QPointF point) const {
    return ((point + QPointF(margin, margin)) * ink.devicePixelRatio()).toPoint();
}

PaintedText textPaintedBy(QWidget& widget) {
    PaintedText painted;
    painted.widget = &widget;
    const qreal ratio = widget.devicePixelRatioF();
    const QSize size = widget.size() + 2 * QSize(PaintedText::margin, PaintedText::margin);
    painted.ink = QImage(size * ratio, QImage::Format_Alpha8);
    painted.ink.setDevicePixelRatio(ratio);
    painted.ink.fill(0);
    TextDevice device(widget, painted);
    widget.render(&device, {}, {}, QWidget::IgnoreMask);
    return painted;
}

QList<PaintedText> textsIn(QWidget& window) {
    QList<PaintedText> texts;
    const auto widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (widget->isVisible()) {
            PaintedText painted = textPaintedBy(*widget);
            if (!painted.pieces.isEmpty() || !textHeldBy(*widget).isEmpty()) {
                texts.append(painted);
            }
        }
    }
    return texts;
}

QRegion shownRegionOf(const QWidget& widget) {
    QRegion region = widget.visibleRegion();
    for (const QWidget* around = &widget; around != nullptr; around = around->parentWidget()) {
        if (!around->mask().isEmpty()) {
            region &= around->mask().translated(-widget.mapTo(around, QPoint(0, 0)));
        }
        if (around->isWindow()) {
            break;
        }
    }
    return region;
}

QString textHeldBy(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return label->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        // A single ampersand marks a shortcut, a doubled one stands for itself.
        static const QRegularExpression ampersand("&(.)");
        return button->text().replace(ampersand, "\\1");
    }
    return {};
}

QString readTextOf(const PaintedText& painted) {
    const QString held = textHeldBy(*painted.widget);
    if (!held.isEmpty()) {
        return held;
    }
    const auto* area = qobject_cast<const QTextEdit*>(painted.widget->parentWidget());
    return area != nullptr ? area->toPlainText() : painted.characters();
}

QString nameOf(const QWidget& widget) {
    const QWidget* named = &widget;
    while (named->objectName().isEmpty() || named->objectName().startsWith("qt_")) {
        if (named->parentWidget() == nullptr) {
            return QString::fromLatin1(widget.metaObject()->className());
        }
        named = named->parentWidget();
    }
    return named->objectName();
}

} // namespace Gallery
