// What the program itself makes of a strings file.
#pragma once

#include "Finding.h"
#include "StringsFile.h"

#include <filesystem>
#include <vector>

namespace CheckStrings {

/// Has the library read the file, looks up every sound entry as the program would, and reports
/// those that come out otherwise than they are written.
/// \throws std::runtime_error when the library cannot open the file.
void compareWithProgram(const std::filesystem::path& file, const std::vector<Entry>& entries,
                        FileReport& report);

} // namespace CheckStrings
