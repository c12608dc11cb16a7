// The rules for one strings file as a whole.
#pragma once

#include "Finding.h"

#include <filesystem>
#include <set>
#include <string>

namespace CheckStrings {

/// The keys that every strings file has to have, as written in the reference.
using Keys = std::set<std::string>;

/// Reads the keys of a strings file, whatever is wrong with it.
/// \throws std::runtime_error when the file cannot be read or has no entry.
Keys readKeys(const std::filesystem::path& reference);

/// Checks a strings file by all rules.
/// \throws UnreadableFile when the file cannot be read.
void checkStringsFile(const std::filesystem::path& file, const Keys& wanted, Findings& findings);

} // namespace CheckStrings
