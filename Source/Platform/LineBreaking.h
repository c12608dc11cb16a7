// Where the lines of a short text end: lines of like length that tear neither the product's name nor
// marked words, and end between phrases. Plain functions over values; any thread.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace Vexora {

/// What stands between two places where the toolkit would let a line end.
struct TextPiece {
    /// Its last place in the text, in units of UTF-16.
    std::size_t end;
    double width;
    /// How wide the blanks are that follow; a line does not need them.
    double blank;
    /// How many characters a reader counts in it, marks and blanks left out.
    std::size_t letters;
};

/// A part of a text, in units of UTF-16.
struct TextRange {
    std::size_t start;
    std::size_t end;
};

/// Chooses where lines end, among the ends of the pieces.
///
/// No line is wider than the room unless it is a single piece. Within that, the product's name and
/// the marked parts stay whole and no line holds a single letter; then lines end between phrases
/// rather than words and between words rather than inside, are few, and of like length.
/// \param pieces of the whole text, in order.
/// \param marked what stays on one line as the name does.
/// \return the last of each line's pieces, as positions in `pieces`, from the last line up: what ends
///     one line in the text moves no place where another ends.
std::vector<std::size_t> lineEnds(std::u16string_view text, std::span<const TextPiece> pieces,
                                  std::span<const TextRange> marked, double room);

} // namespace Vexora
