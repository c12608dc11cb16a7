// What the program itself makes of a strings file.
#pragma once

#include "Finding.h"
#include "StringsFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CheckStrings {

/// @return the key under which the program keeps a line, as written; nothing when it drops the line.
std::optional<std::string> keyInProgram(std::string_view line);

/// Has the library read the file, looks up every sound entry as the program would, and reports
/// those that come out otherwise than they are written.
/// @throws std::runtime_error when the library cannot open the file.
void compareWithProgram(const std::filesystem::path& file, const std::vector<Entry>& entries,
                        FileReport& report);

} // namespace CheckStrings
