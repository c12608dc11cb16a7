// What the process-wide translator knows during a test. Main thread only.
// Every fixture whose subject translates texts starts from known translations.
#pragma once

#include <kvparser.h>
#include <tr.h>

#include <map>
#include <string>

namespace TestSupport {

/// Gives the translator no translations, so that every text stands for itself.
inline void forgetTranslations() {
    VXLOCAL::Translator::getInstance()->init(new VXLOCAL::KVParser("null"), "en", "/dev", "null");
}

/// The bytes of a strings file with these entries.
inline std::string stringsFile(const std::map<std::string, std::string>& entries) {
    std::string bytes;
    for (const auto& [key, value] : entries) {
        bytes += '"' + key + "\" = \"" + value + "\"\n";
    }
    return bytes;
}

} // namespace TestSupport
