#include "Core/LocaleSelection.h"

#include <kvparser.h>
#include <tr.h>

#include <exception>

namespace Vexora {

std::string languageCode(const std::string& localeIdentifier) {
    std::string lowered = localeIdentifier;
    for (char& character : lowered) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return lowered.substr(0, 2);
}

std::string localeDirectory(const std::string& resourcePath, const std::string& language) {
    return resourcePath + "/" + language + ".lproj";
}

bool loadTranslations(const std::string& language, const std::string& directory) {
    auto* const catalogue = new VXLOCAL::KVParser(stringsFileName);
    // The translator owns it from here on, whether or not its file can be loaded.
    VXLOCAL::Translator::getInstance()->init(catalogue, language, directory, stringsFileName);
    return !catalogue->isEmpty();
}

std::optional<std::string>
initializeTranslator(Environment& environment, const std::function<void(const std::string&)>& log,
                     const std::function<bool(const std::string&, const std::string&)>& load) {
    const std::string resourcePath = environment.resourcePath();
    std::string language = languageCode(environment.localeIdentifier());
    const std::string directory = localeDirectory(resourcePath, language);
    try {
        return load(language, directory) ? std::optional(language) : std::nullopt;
    } catch (const std::exception& error) {
        log(error.what());
        return std::nullopt;
    }
}

} // namespace Vexora
