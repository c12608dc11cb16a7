// Texts that show nothing.
#pragma once

#include <string_view>

namespace CheckStrings {

/// @return whether the text is valid UTF-8 of nothing but blanks, line ends and invisible format
///     characters, as it is when it is empty.
bool isBlank(std::string_view text);

} // namespace CheckStrings
