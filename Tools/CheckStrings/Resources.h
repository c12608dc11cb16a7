// A staged resource directory as a whole.
#pragma once

#include "FileRules.h"

#include <filesystem>

namespace CheckStrings {

/// The strings file that counts as reference when none is named.
std::filesystem::path defaultReference(const std::filesystem::path& resources);

/// Checks the strings file in every folder `xx.lproj`, that each such language has its `LA_xx`, and
/// every licence file. What else ends in `.lproj`, and a file that cannot be read, is a finding.
/// \throws std::runtime_error when the directory cannot be read or has no folder `xx.lproj`.
void checkResources(const std::filesystem::path& resources, const Keys& wanted, Findings& findings);

} // namespace CheckStrings
