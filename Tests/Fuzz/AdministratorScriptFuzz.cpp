// Compares the command that is read from an arbitrary script with one that is taken out of it by
// hand, and has every command that is written as a literal come back.
#include "Platform/Qt/AdministratorScript.h"

#include "Fuzzing.h"

#include <optional>
#include <string>

using Fuzzing::require;

namespace {

const std::string opening = "do shell script \"";
const std::string closing = "\" with administrator privileges";

/// What stands between the quotes, with its two backslashes for one resolved.
std::optional<std::string> meant(const std::string& literal) {
    std::string text;
    bool isBehindBackslash = false;
    for (const char byte : literal) {
        if (byte == '"' || (isBehindBackslash && byte != '\\')) {
            return std::nullopt;
        }
        isBehindBackslash = !isBehindBackslash && byte == '\\';
        if (!isBehindBackslash) {
            text += byte;
        }
    }
    return isBehindBackslash ? std::nullopt : std::optional(text);
}

std::optional<std::string> commandIn(const std::string& source) {
    if (source.size() < opening.size() + closing.size() || !source.starts_with(opening) ||
        !source.ends_with(closing)) {
        return std::nullopt;
    }
    return meant(source.substr(opening.size(), source.size() - opening.size() - closing.size()));
}

std::string literalOf(const std::string& command) {
    std::string literal;
    for (const char byte : command) {
        literal += byte == '\\' ? std::string("\\\\") : std::string{byte};
    }
    return literal;
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    for (const std::string& source : {input, opening + input + closing}) {
        require(Vexora::shellCommandOf(source) == commandIn(source), "another command", source);
    }
    const bool hasQuote = input.find('"') != std::string::npos;
    require(Vexora::shellCommandOf(opening + literalOf(input) + closing) ==
                (hasQuote ? std::nullopt : std::optional(input)),
            "the command does not come back", input);
}
