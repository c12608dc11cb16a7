// Whether the installed fonts can write everything that is shown. Main thread only.
#pragma once

#include "Finding.h"
#include "PaintedText.h"

namespace Gallery {

/// Characters for which shaping, all fallback fonts included, finds no glyph, and words that are
/// put together from several fonts, across which letters neither join nor stack; of a text area
/// also those that have to be scrolled to.
Findings checkGlyphs(const PaintedText& painted);

} // namespace Gallery
