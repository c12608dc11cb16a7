#include "Utf8.h"

#include <array>
#include <cstddef>
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

} // namespace CheckStrings
