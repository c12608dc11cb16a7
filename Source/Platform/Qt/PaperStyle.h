// How buttons, the progress bar and the licence's frame look, independent of the desktop's theme.
// Draws over Fusion, which supplies everything that is not drawn here.
#pragma once

#include "Platform/Qt/Wishes.h"

#include <QProxyStyle>

namespace Vexora {

class PaperStyle : public QProxyStyle {
    Q_OBJECT

public:
    PaperStyle();

    /// The light palette that belongs to the style.
    /// \param contrast whether text and borders are black and the paper white.
    static QPalette paperPalette(bool contrast = false);
    static bool hasContrast(const QPalette& palette);

    /// Draws as the desktop wants from now on, in a palette to match.
    void heed(const Wishes& wishes);

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;

private:
    Wishes wishes_;
};

} // namespace Vexora
