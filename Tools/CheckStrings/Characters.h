// The characters of texts: reading them from UTF-8, those that nobody sees, and those that a
// terminal cannot take.
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

/// \param bytes not empty.
/// \return the character that the bytes begin with, or nothing when they begin with no valid UTF-8:
///     cut or overlong sequences, surrogates, and what lies behind U+10FFFF.
std::optional<Character> firstCharacter(std::string_view bytes);

/// \return the code points, or nothing when not all bytes are valid UTF-8.
std::optional<std::u32string> decodeUtf8(std::string_view bytes);

/// \return whether the text is valid UTF-8 of nothing but blanks, line ends and invisible format
///     characters, as it is when it is empty.
bool isBlank(std::string_view text);

/// \return whether each embedding and override is ended by a PDF and each isolate by a PDI, one
///     inside the other, and nothing else is ended. Plain direction marks need no partner.
bool hasBalancedBidiControls(std::u32string_view text);

/// \return the text with every control character, line ends included, and every byte that is not
///     valid UTF-8 written as a backslash, the letter x and two hexadecimal digits per byte.
std::string printable(std::string_view text);

} // namespace CheckStrings
