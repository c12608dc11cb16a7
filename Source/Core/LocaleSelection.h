// Chooses the language of all texts from the current locale and loads its strings file.
// Main thread, before any text is translated.
#pragma once

#include "Platform/Services.h"

#include <functional>
#include <optional>
#include <string>

namespace Vexora {

/// The name of every language's strings file.
inline constexpr const char* stringsFileName = "Localizable.strings";

/// The two-letter language code: the identifier with A to Z lowered and every other byte as it is,
/// cut to its first two bytes. An identifier shorter than that is taken whole.
std::string languageCode(const std::string& localeIdentifier);

/// The folder of a language's strings file. Whether it exists is not asked.
std::string localeDirectory(const std::string& resourcePath, const std::string& language);

/// Hands the translator the translations of a language, which lie in the folder `directory`.
/// \return whether there is any. \throws a standard exception when they cannot be loaded.
bool loadTranslations(const std::string& language, const std::string& directory);

/// Has `load` take the translations of the current locale's language from their folder. When it
/// throws a standard exception, the texts stay English and `log` gets the reason. \return the code
/// of the language that the texts are in, nothing when they stayed English.
/// \throws what the environment or `log` throws, std::bad_alloc, and what is no standard exception.
std::optional<std::string> initializeTranslator(
    Environment& environment, const std::function<void(const std::string&)>& log,
    const std::function<bool(const std::string&, const std::string&)>& load = loadTranslations);

} // namespace Vexora
