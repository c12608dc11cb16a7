#include "Support/Catalogue.h"

#include <kvparser.h>
#include <tr.h>

namespace TestSupport {

void forgetTranslations() {
    VXLOCAL::Translator::getInstance()->init(new VXLOCAL::KVParser("null"), "en", "/dev", "null");
}

std::string stringsFile(const std::map<std::string, std::string>& entries) {
    std::string bytes;
    for (const auto& [key, value] : entries) {
        bytes += '"' + key + "\" = \"" + value + "\"\n";
    }
    return bytes;
}

} // namespace TestSupport
