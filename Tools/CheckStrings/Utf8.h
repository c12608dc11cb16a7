// Reading UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace CheckStrings {

/// @return the code points, or nothing when the bytes are not valid UTF-8: cut or overlong
///     sequences, surrogates, and what lies behind U+10FFFF.
std::optional<std::u32string> decodeUtf8(std::string_view bytes);

} // namespace CheckStrings
