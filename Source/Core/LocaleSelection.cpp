#include "Core/LocaleSelection.h"

#include <kvparser.h>
#include <tr.h>

#include <exception>

namespace Vexora {

std::string languageCode(const std::string& localeIdentifier) {
    std::string code = localeIdentifier.substr(0, 2);
    for (char& character : code) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return code;
}

std::string localeDirectory(const std::string& resourcePath, const std::string& language) {
    return resourcePath + "/" + language + ".lproj";
}

std::optional<std::string>
initializeTranslator(Environment& environment, const std::function<void(const std::string&)>& log) {
    const std::string resourcePath = environment.resourcePath();
    const std::string language = languageCode(environment.localeIdentifier());
    try {
        // The translator owns the catalogue from here on, whether or not it can be loaded.
        VXLOCAL::Translator::getInstance()->init(new VXLOCAL::KVParser(stringsFileName), language,
                                                 localeDirectory(resourcePath, language),
                                                 stringsFileName);
        return language;
    } catch (const std::exception& error) {
        log(error.what());
        return std::nullopt;
    }
}

} // namespace Vexora
