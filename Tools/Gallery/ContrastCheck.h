// Whether texts stand out from what is really behind them. Main thread only.
#pragma once

#include "Fault.h"
#include "PaintedText.h"

#include <QColor>

namespace Gallery {

/// The least contrast that a text must have.
inline constexpr double leastContrast = 4.5;

/// The contrast ratio, 1 to 21, as the Web Content Accessibility Guidelines 2.2 define it,
/// https://www.w3.org/TR/WCAG22/#dfn-contrast-ratio.
double contrast(const QColor& one, const QColor& other);

/// Texts of too little contrast. Both colours are taken from the picture: that of the text where
/// its ink covers a pixel most, that behind it from the pixels in its rectangle that no ink
/// touches.
/// \param picture of the whole window.
Faults checkContrast(const PaintedText& painted, const QImage& picture);

} // namespace Gallery
