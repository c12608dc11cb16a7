// One line of a strings file: as its writer meant it, whatever is wrong with it, and as the program
// takes it.
#pragma once

#include "Rules.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CheckStrings {

/// What stands between a key and its text: closing quote, space, equals sign, space, opening quote.
inline constexpr std::string_view separator = "\" = \"";

struct EntryLine {
    std::string_view key;
    std::string_view value;
    /// The rules that the line breaks; without any, it is exactly `"key" = "value"`.
    std::vector<Rule> broken;
};

/// Quotes inside a text count as pairs, so that a closing quote can be told from one inside.
/// \param line without its line end.
/// \return what was meant, pointing into the line; nothing when the line has no quotes around an
///     equals sign and so cannot be meant as an entry.
std::optional<EntryLine> readEntryLine(std::string_view line);

/// \return the key under which the program keeps a line, as written; nothing when it drops the line.
std::optional<std::string> keyInProgram(std::string_view line);

} // namespace CheckStrings
