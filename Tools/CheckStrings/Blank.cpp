#include "Blank.h"

#include "Utf8.h"

#include <algorithm>
#include <array>

namespace CheckStrings {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// White space, and the format characters that have no shape of their own.
constexpr auto invisible = std::to_array<Range>({
    {0x0009, 0x000D},   // tab to carriage return
    {0x0020, 0x0020},   // space
    {0x0085, 0x0085},   // next line
    {0x00A0, 0x00A0},   // no-break space
    {0x00AD, 0x00AD},   // soft hyphen
    {0x061C, 0x061C},   // Arabic letter mark
    {0x1680, 0x1680},   // Ogham space mark
    {0x180E, 0x180E},   // Mongolian vowel separator
    {0x2000, 0x200F},   // spaces of all widths, joiners, direction marks
    {0x2028, 0x202F},   // separators, direction controls, narrow no-break space
    {0x205F, 0x2064},   // mathematical space, word joiner, invisible operators
    {0x2066, 0x206F},   // isolates, withdrawn format characters
    {0x3000, 0x3000},   // ideographic space
    {0xFEFF, 0xFEFF},   // zero-width no-break space
    {0xE0001, 0xE007F}, // tags
});

bool isInvisible(char32_t point) {
    return std::ranges::any_of(invisible, [point](const Range& range) {
        return point >= range.first && point <= range.last;
    });
}

} // namespace

bool isBlank(std::string_view text) {
    const auto points = decodeUtf8(text);
    return points && std::ranges::all_of(*points, isInvisible);
}

} // namespace CheckStrings
