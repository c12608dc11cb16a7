#include "Platform/Qt/AdministratorScript.h"

#include "Platform/Posix/ShellCommand.h"

#include <string_view>
#include <system_error>

namespace Vexora {
namespace {

/// Runs the words behind it in the encoding in which they were tried, and throws their output away:
/// pkexec, which takes the variables of a session from the system, could change the encoding.
constexpr const char* quietly = "export LC_ALL=C.UTF-8; exec \"$@\" >/dev/null 2>&1";

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
        if (script[position] == '\\') {
            ++position;
            if (position == script.size() || script[position] != '\\') {
                return std::nullopt;
            }
        }
        command += script[position];
    }
    if (script.substr(position) != closing) {
        return std::nullopt;
    }
    return command;
}

bool QtAdministratorScript::execute(const std::string& source) {
    const auto line = shellCommandOf(source);
    if (!line || !shellStartsItsProgramAlone(processes_, programs_.shell, *line)) {
        systemLog_.log("Upgrade system-wide not tried: a shell might not start install alone");
        return false;
    }
    std::vector<std::string> words = {"--disable-internal-agent", programs_.runInstall};
    if (programs_.runInstall.empty()) {
        words = {words[0], programs_.shell, "-c", quietly, "sh", programs_.shell, "-c"};
    }
    words.push_back(*line);
    const auto environment = shellEnvironment();
    try {
        return processes_.launchProcess(programs_.pkexec, words, nullptr, &environment)
                   ->waitUntilExit() == 0;
    } catch (const std::system_error&) {
        return false;
    }
}

} // namespace Vexora
