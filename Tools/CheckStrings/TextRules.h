// What the text of one entry must keep to, seen as the program will use it.
#pragma once

#include "Finding.h"
#include "StringsFile.h"

namespace CheckStrings {

/// Reports what is wrong with the entry's text: escapes, conversions, percent signs, tags, length
/// and direction controls.
void checkText(const Entry& entry, FileReport& report);

} // namespace CheckStrings
