// Whether the installed fonts can write everything that is shown. Main thread only.
#pragma once

#include "Fault.h"
#include "PaintedText.h"

#include <QFont>

namespace Gallery {

/// Characters for which shaping, all fallback fonts included, finds no glyph, and words that are
/// put together from several fonts, across which letters neither join nor stack; of a text area
/// also those that have to be scrolled to.
Faults checkGlyphs(const PaintedText& painted);

/// The same of a text that no control paints.
Faults checkGlyphs(const QString& name, const QString& text, const QFont& font);

} // namespace Gallery
