// Whether the lines of a label end where a reader expects it: neither inside the product's name nor
// inside marked words, and nowhere that leaves a character or a mark alone. Measured on what the
// label paints. Main thread only.
#pragma once

#include "Fault.h"
#include "PaintedText.h"

namespace Gallery {

/// The product's name and marked words that stand on several lines although one has the room.
Faults checkTorn(const PaintedText& painted);

/// Lines of one letter, and those that begin with a closing mark or a small kana or end with an
/// opening one.
Faults checkLineEnds(const PaintedText& painted);

} // namespace Gallery
