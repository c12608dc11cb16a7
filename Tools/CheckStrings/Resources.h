// A staged resource directory as a whole.
#pragma once

#include "Catalogue.h"

#include <filesystem>

namespace CheckStrings {

/// The strings file that counts as reference when none is named.
std::filesystem::path defaultReference(const std::filesystem::path& resources);

/// Checks the strings file in every folder `xx.lproj`, that each such language has its `LA_xx`, and
/// every licence file.
/// @throws std::runtime_error when the directory has no such folder, or when something cannot be
///     read, a strings file that is missing in its folder included.
void checkResources(const std::filesystem::path& resources, const Keys& wanted, Findings& findings);

} // namespace CheckStrings
