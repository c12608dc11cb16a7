// Between the values of the seam and those of the toolkit.
// Main thread only.
#pragma once

#include "Platform/StyledText.h"

#include <QColor>
#include <QFont>
#include <QList>
#include <QString>
#include <QTextLayout>

namespace Vexora {

/// UTF-8 to the toolkit's text; bytes that are no UTF-8 become replacement characters.
QString toQString(const std::string& text);

QColor toQColor(const Color& color);

/// The typeface of that name when the system or the folder of fonts has it, otherwise the desktop's,
/// in semibold when the name asks for it. The size is taken in points.
QFont toQFont(const Font& font);

/// The formats of a text's runs, with positions in the text that toQString makes of its characters.
QList<QTextLayout::FormatRange> toFormatRanges(const StyledText& text);

/// Makes the typefaces of that folder known; a folder that is missing has none.
void loadFonts(const QString& folder);

} // namespace Vexora
