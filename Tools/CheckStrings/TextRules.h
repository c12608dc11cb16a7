// What the text of one entry must keep to, seen as the program will use it.
#pragma once

#include "Finding.h"
#include "StringsFile.h"

namespace CheckStrings {

/// Reports what is wrong with the entry's text: that it shows nothing, or else its escapes,
/// conversions, percent signs, tags, length and direction controls.
/// \param entry with a text that is not empty.
void checkText(const Entry& entry, FileReport& report);

} // namespace CheckStrings
