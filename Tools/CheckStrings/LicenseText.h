// The encoding of licence texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace CheckStrings {

/// \return what is wrong with these bytes as UTF-16 text that begins with a byte-order mark, or
///     nothing when all is well and the text is not empty.
std::optional<std::string> wrongEncoding(std::string_view bytes);

} // namespace CheckStrings
