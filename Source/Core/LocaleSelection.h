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

/// The two-letter language code: the identifier in lower case, cut to its first two bytes.
/// An identifier shorter than that is taken whole.
std::string languageCode(const std::string& localeIdentifier);

/// The folder of a language's strings file. Whether it exists is not asked.
std::string localeDirectory(const std::string& resourcePath, const std::string& language);

/// Hands the translator the catalogue of the current locale's language. When it cannot be loaded,
/// the texts stay English and `log` gets the reason. \return the code of the language that the
/// texts are in, nothing when they stayed English.
/// \throws what the environment or `log` throws, std::bad_alloc, and what is no standard exception.
std::optional<std::string> initializeTranslator(Environment& environment,
                                                const std::function<void(const std::string&)>& log);

/// Takes a step and hands the text of a standard exception to `log`. \return whether none came.
/// \throws what the step throws and is no standard exception, and what `log` throws.
bool succeeds(const std::function<void()>& step,
              const std::function<void(const std::string&)>& log);

} // namespace Vexora
