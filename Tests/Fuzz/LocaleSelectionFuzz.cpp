// Starts the translator under arbitrary values of LC_ALL, LC_MESSAGES and LANG, the parts of an input,
// and compares the language and its folder with what a walk over the single bytes finds.
#include "Core/LocaleSelection.h"

#include "Fuzzing.h"
#include "Platform/Posix/Environment.h"

#include <array>
#include <cctype>
#include <stdlib.h>
#include <string>

using Fuzzing::require;

namespace {

class FuzzedEnvironment final : public Vexora::Environment {
public:
    std::string homeDirectory() override { return "/home"; }
    std::string resourcePath() override { return "/resources"; }
    std::string localeIdentifier() override { return Vexora::posixLocaleIdentifier(); }
};

/// Without encoding and modifier.
std::string identifierOf(const std::string& value) {
    std::string identifier;
    for (const char byte : value) {
        if (byte == '.' || byte == '@') {
            break;
        }
        identifier += byte;
    }
    return identifier == "C" || identifier == "POSIX" ? "en_US" : identifier;
}

/// The first two bytes, in lower case whatever the process's locale.
std::string languageOf(const std::string& identifier) {
    std::string language;
    for (const char byte : identifier) {
        if (language.size() < 2) {
            language += static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
        }
    }
    return language;
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    std::string identifier;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string value = takePart(input).c_str(); // up to its first zero byte
        ::setenv(name, value.c_str(), 1);
        if (identifier.empty() && !value.empty()) {
            identifier = value;
        }
    }
    identifier = identifier.empty() ? "en_US" : identifierOf(identifier);
    require(Vexora::posixLocaleIdentifier() == identifier, "another identifier", identifier);

    const std::string expected = languageOf(identifier);
    FuzzedEnvironment environment;
    const auto language = Vexora::initializeTranslator(
        environment, [](const std::string&) {},
        [&](const std::string& code, const std::string& folder) {
            require(code == expected && folder == "/resources/" + expected + ".lproj",
                    "another folder", folder);
            return true;
        });
    require(language == expected, "another language", identifier);
    // Also where a locale identifier holds what a variable cannot.
    require(Vexora::languageCode(input) == languageOf(input), "another code", input);
}
