// A strings file as its writer meant it: entries, comments and blank lines.
#pragma once

#include "Finding.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace CheckStrings {

struct Entry {
    /// Counted from 1.
    std::size_t line;
    /// As written, escapes included; neither is empty.
    std::string key;
    std::string value;
    /// Whether the line breaks no rule, so that the program must read it just so.
    bool sound;
};

/// Reads the bytes of a strings file and reports the lines that are no proper entries.
///
/// Comments begin with `#` or `//`, or stand between slash-asterisk and asterisk-slash, which may
/// take several lines. The program knows no comments: a line that it would take for an entry is
/// reported when it stands in such a comment.
/// @return every entry, also of lines with faults, in the order of the lines; none for a file in
///     UTF-16.
std::vector<Entry> readEntries(std::string_view bytes, FileReport& report);

} // namespace CheckStrings
