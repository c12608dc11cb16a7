// Reading UTF-8.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace CheckStrings {

struct Character {
    char32_t point;
    /// In bytes.
    std::size_t length;
};

/// @param bytes not empty.
/// @return the character that the bytes begin with, or nothing when they begin with no valid UTF-8:
///     cut or overlong sequences, surrogates, and what lies behind U+10FFFF.
std::optional<Character> firstCharacter(std::string_view bytes);

/// @return the code points, or nothing when not all bytes are valid UTF-8.
std::optional<std::u32string> decodeUtf8(std::string_view bytes);

} // namespace CheckStrings
