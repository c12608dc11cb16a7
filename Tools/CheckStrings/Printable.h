// Text from files and paths, made fit for a terminal and for a line of output.
#pragma once

#include <string>
#include <string_view>

namespace CheckStrings {

/// @return the text with every control character, line ends included, and every byte that is not
///     valid UTF-8 written as a backslash, the letter x and two hexadecimal digits per byte.
std::string printable(std::string_view text);

} // namespace CheckStrings
