// What the process-wide translator knows during a test. Main thread only.
// Every fixture whose subject translates texts starts from a known catalogue.
#pragma once

#include <map>
#include <string>

namespace TestSupport {

/// Gives the translator an empty catalogue, so that every text stands for itself.
void forgetTranslations();

/// The bytes of a strings file with these entries.
std::string stringsFile(const std::map<std::string, std::string>& entries);

} // namespace TestSupport
