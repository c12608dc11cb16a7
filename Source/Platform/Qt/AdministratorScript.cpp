#include "Platform/Qt/AdministratorScript.h"

#include <string_view>
#include <system_error>

namespace Vexora {
namespace {

/// What a backslash and the character behind it stand for in a literal; nothing for an unknown
/// escape.
std::optional<char> escapedCharacter(char character) {
    switch (character) {
    case '\\':
    case '"':
        return character;
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<std::string> shellCommandOf(const std::string& source) {
    constexpr std::string_view opening = "do shell script \"";
    constexpr std::string_view closing = "\" with administrator privileges";
    const std::string_view script(source);
    if (!script.starts_with(opening)) {
        return std::nullopt;
    }
    std::string command;
    std::size_t position = opening.size();
    for (; position < script.size() && script[position] != '"'; ++position) {
        char character = script[position];
        if (character == '\\') {
            ++position;
            const auto meant =
                position < script.size() ? escapedCharacter(script[position]) : std::nullopt;
            if (!meant) {
                return std::nullopt;
            }
            character = *meant;
        }
        command += character;
    }
    if (script.substr(position) != closing) {
        return std::nullopt;
    }
    return command;
}

bool QtAdministratorScript::execute(const std::string& source) {
    const auto command = shellCommandOf(source);
    if (!command) {
        return false;
    }
    const auto output = files_.fileHandleForUpdatingAtPath("/dev/null");
    try {
        const auto process = processes_.launchProcess(
            "/usr/bin/pkexec", {"--disable-internal-agent", "/bin/sh", "-c", *command},
            output.get());
        return process->waitUntilExit() == 0;
    } catch (const std::system_error&) {
        return false;
    }
}

} // namespace Vexora
