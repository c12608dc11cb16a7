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

std::optional<std::string>
initializeTranslator(Environment& environment, const std::function<void(const std::string&)>& log) {
    const std::string resourcePath = environment.resourcePath();
    const std::string language = languageCode(environment.localeIdentifier());
    const std::string directory = localeDirectory(resourcePath, language);
    const auto load = [&] {
        // The translator owns the catalogue from here on, whether or not it can be loaded.
        VXLOCAL::Translator::getInstance()->init(new VXLOCAL::KVParser(stringsFileName), language,
                                                 directory, stringsFileName);
    };
    return succeeds(load, log) ? std::optional(language) : std::nullopt;
}

bool succeeds(const std::function<void()>& step,
              const std::function<void(const std::string&)>& log) {
    try {
        step();
        return true;
    } catch (const std::exception& error) {
        log(error.what());
        return false;
    }
}

} // namespace Vexora
