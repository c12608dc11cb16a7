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
    /// As written, escapes included; never empty.
    std::string key;
    /// As written; empty when the line has no text, which the program drops.
    std::string value;
    /// Whether the line breaks no rule, so that the program must read it just so.
    bool sound;
};

struct CommentedEntry {
    std::size_t line;
    std::string key;
};

struct Strings {
    /// Every entry, also of lines with faults, in the order of the lines.
    std::vector<Entry> entries;
    /// The lines inside comments that the program, which knows no comments, takes for entries.
    std::vector<CommentedEntry> commented;
};

/// Reads the bytes of a strings file and reports the lines that are no proper entries.
///
/// Comments begin with `#` or `//`, or stand between slash-asterisk and asterisk-slash, which may
/// take several lines.
/// \return nothing for a file in UTF-16.
Strings readStrings(std::string_view bytes, FileReport& report);

} // namespace CheckStrings
