#include "Platform/LineBreaking.h"

#include <algorithm>
#include <limits>

namespace Vexora {
namespace {

// What counts against a line, in lines: one more of them is better than to end inside a word.
constexpr double anyLine = 2.0;
constexpr double endsBetweenWords = 0.2;
constexpr double endsInAWord = 4.0;
constexpr double tears = 1000.0;

constexpr std::u16string_view productName = u"Ondrel Vexora Lumiq";
constexpr std::u16string_view makersName = u"Ondrel Vexora";

constexpr std::u16string_view blanks = u" \t\u200B\u3000";
constexpr std::u16string_view phraseEnds = u".,;:!?…،؛؟۔।、。，：；！？";
constexpr char16_t lineSeparator = u'\u2028';

bool isIn(std::u16string_view set, char16_t character) {
    return set.find(character) != std::u16string_view::npos;
}

bool isHiragana(char16_t character) {
    return character >= u'\u3041' && character <= u'\u309F';
}

/// What it costs to end a line before that place.
double costOfEnd(std::u16string_view text, std::size_t place) {
    const std::size_t last = text.find_last_not_of(blanks, place - 1);
    const std::size_t next = text.find_first_not_of(blanks, place);
    if (last == std::u16string_view::npos || next == std::u16string_view::npos) {
        return 0.0;
    }
    const char16_t before = text[last];
    const char16_t after = text[next];
    if (isIn(phraseEnds, before)) {
        return 0.0;
    }
    // Japanese has no blanks; there a phrase ends in hiragana, and the next begins without.
    const bool between = last + 1 < next || isHiragana(before);
    return between && !isHiragana(after) ? endsBetweenWords : endsInAWord;
}

/// The marked parts and every name in the text.
std::vector<TextRange> keptTogether(std::u16string_view text, std::span<const TextRange> marked) {
    std::vector<TextRange> kept(marked.begin(), marked.end());
    for (std::size_t at = text.find(makersName); at != std::u16string_view::npos;
         at = text.find(makersName, at + makersName.size())) {
        const bool whole = text.substr(at).starts_with(productName);
        kept.push_back({at, at + (whole ? productName : makersName).size()});
    }
    return kept;
}

/// What it costs to end a line behind each piece.
std::vector<double> costsOfEnds(std::u16string_view text, std::span<const TextPiece> pieces,
                                std::span<const TextRange> marked) {
    const std::vector<TextRange> kept = keptTogether(text, marked);
    std::vector<double> costs;
    for (const TextPiece& piece : pieces) {
        const auto torn = std::ranges::count_if(kept, [&](const TextRange& range) {
            return range.start < piece.end && piece.end < range.end;
        });
        costs.push_back(tears * static_cast<double>(torn) + costOfEnd(text, piece.end));
    }
    return costs;
}

} // namespace

std::vector<std::size_t> lineEnds(std::u16string_view text, std::span<const TextPiece> pieces,
                                  std::span<const TextRange> marked, double room) {
    const std::vector<double> costs = costsOfEnds(text, pieces, marked);
    // For so many pieces from the first on: the least that their lines cost, and how many of them
    // stand above the last line.
    std::vector<double> least(pieces.size() + 1, std::numeric_limits<double>::infinity());
    std::vector<std::size_t> above(pieces.size() + 1);
    least.front() = 0.0;
    for (std::size_t end = 1; end <= pieces.size(); ++end) {
        double width = -pieces[end - 1].blank;
        std::size_t letters = 0;
        for (std::size_t start = end; start-- > 0;) {
            width += pieces[start].width + pieces[start].blank;
            if (start + 1 < end && (width > room || text[pieces[start].end - 1] == lineSeparator)) {
                break;
            }
            letters += pieces[start].letters;
            const double cost = least[start] + anyLine + width * width / (room * room) +
                                costs[end - 1] + tears * static_cast<double>(letters < 2);
            if (cost < least[end]) {
                least[end] = cost;
                above[end] = start;
            }
        }
    }
    std::vector<std::size_t> ends;
    for (std::size_t end = pieces.size(); end > 0; end = above[end]) {
        ends.push_back(end - 1);
    }
    return ends;
}

} // namespace Vexora
