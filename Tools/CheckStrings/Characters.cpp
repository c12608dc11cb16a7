#include "Characters.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace CheckStrings {

namespace {

/// By the number of bytes that follow the first: the least code point that needs them.
constexpr std::array<char32_t, 4> least = {0, 0x80, 0x800, 0x10000};

/// How many bytes follow a first byte, or nothing when no character starts with it.
std::optional<std::size_t> tailLength(std::uint8_t lead) {
    if (lead < 0x80) {
        return 0;
    }
    if (lead < 0xC0 || lead >= 0xF8) {
        return std::nullopt;
    }
    return lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
}

/// The character that a text starts with, made of so many bytes behind the first, all there.
std::optional<char32_t> firstPoint(std::string_view bytes, std::size_t tail) {
    const auto lead = static_cast<std::uint8_t>(bytes.front());
    char32_t point = tail == 0 ? lead : lead & (0x3FU >> tail);
    for (const char byte : bytes.substr(1, tail)) {
        const auto value = static_cast<std::uint8_t>(byte);
        if ((value & 0xC0U) != 0x80) {
            return std::nullopt;
        }
        point = point << 6 | (value & 0x3FU);
    }
    const bool surrogate = point >= 0xD800 && point < 0xE000;
    return point < least[tail] || surrogate || point > 0x10FFFF ? std::nullopt
                                                                : std::optional(point);
}

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

constexpr char32_t endOfEmbedding = U'\u202C';
constexpr char32_t endOfIsolate = U'\u2069';

/// The character that ends what this one begins, or 0 when it begins nothing.
char32_t partnerOf(char32_t character) {
    switch (character) {
    case U'\u202A': // LRE
    case U'\u202B': // RLE
    case U'\u202D': // LRO
    case U'\u202E': // RLO
        return endOfEmbedding;
    case U'\u2066': // LRI
    case U'\u2067': // RLI
    case U'\u2068': // FSI
        return endOfIsolate;
    default:
        return 0;
    }
}

bool isControl(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point < 0xA0);
}

std::string escaped(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes) {
        const auto value = static_cast<std::uint8_t>(byte);
        text += {'\\', 'x', digits[value / 16], digits[value % 16]};
    }
    return text;
}

} // namespace

std::optional<Character> firstCharacter(std::string_view bytes) {
    const auto tail = tailLength(static_cast<std::uint8_t>(bytes.front()));
    const auto point = tail && *tail < bytes.size() ? firstPoint(bytes, *tail) : std::nullopt;
    return point ? std::optional(Character{*point, *tail + 1}) : std::nullopt;
}

std::optional<std::u32string> decodeUtf8(std::string_view bytes) {
    std::u32string points;
    while (!bytes.empty()) {
        const auto character = firstCharacter(bytes);
        if (!character) {
            return std::nullopt;
        }
        points += character->point;
        bytes.remove_prefix(character->length);
    }
    return points;
}

bool isBlank(std::string_view text) {
    const auto points = decodeUtf8(text);
    return points && std::ranges::all_of(*points, isInvisible);
}

bool hasBalancedBidiControls(std::u32string_view text) {
    std::u32string expected;
    for (const char32_t character : text) {
        if (const char32_t partner = partnerOf(character); partner != 0) {
            expected += partner;
        } else if (character == endOfEmbedding || character == endOfIsolate) {
            if (expected.empty() || expected.back() != character) {
                return false;
            }
            expected.pop_back();
        }
    }
    return expected.empty();
}

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto character = firstCharacter(text);
        const std::string_view bytes = text.substr(0, character ? character->length : 1);
        if (!character || isControl(character->point)) {
            result += escaped(bytes);
        } else {
            result += bytes;
        }
        text.remove_prefix(bytes.size());
    }
    return result;
}

} // namespace CheckStrings
