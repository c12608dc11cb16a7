#include "Platform/Posix/ShellCommand.h"

#include <sys/stat.h>
#include <unistd.h>

#include <string_view>
#include <system_error>

namespace Vexora {
namespace {

constexpr std::string_view argument = " true";

/// The word by which a line has a program, which holds no backslash.
std::string wordFor(const std::string& program) {
    std::string word;
    for (const char character : program) {
        if (character == ' ') {
            word += '\\';
        }
        word += character;
    }
    return word;
}

/// Whether only this user and root can change which names the folder holds, and this user sees them
/// all.
bool isOurs(const std::string& folder) {
    struct stat status = {};
    return ::stat(folder.c_str(), &status) == 0 &&
           (status.st_uid == 0 || status.st_uid == ::getuid()) &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0 && ::access(folder.c_str(), R_OK) == 0;
}

/// Whether a shell may take a name for a pattern. A bracket that nothing closes stands for itself.
bool isPattern(const std::string& name) {
    const std::size_t bracket = name.find('[');
    return name.find_first_of("*?") != std::string::npos ||
           (bracket != std::string::npos && name.find(']', bracket) != std::string::npos);
}

/// The beginnings of a path that end with a pattern; nothing when one of them may come to match
/// other names.
std::optional<std::vector<std::string>> patternsOf(const std::string& path) {
    std::vector<std::string> patterns;
    std::size_t slash = 0;
    while (slash != std::string::npos) {
        const std::size_t end = path.find('/', slash + 1);
        const std::string name = path.substr(slash, end - slash);
        if (isPattern(name)) {
            if (!isOurs(path.substr(0, slash + 1))) {
                return std::nullopt;
            }
            patterns.push_back(path.substr(0, end));
        }
        slash = end;
    }
    return patterns;
}

} // namespace

std::vector<std::string> shellEnvironment() {
    return {"PATH=/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL=C.UTF-8"};
}

std::optional<std::string> programOfShellCommand(const std::string& line) {
    if (!line.starts_with('/') || !line.ends_with(argument)) {
        return std::nullopt;
    }
    const std::string word = line.substr(0, line.size() - argument.size());
    std::string program;
    for (const char character : word) {
        if (character != '\\') {
            program += character;
        }
    }
    // A backslash elsewhere, or a blank without one.
    if (wordFor(program) != word ||
        program.find_first_of("$`;|&<>()'\"\t\n") != std::string::npos) {
        return std::nullopt;
    }
    return program;
}

bool shellStartsItsProgramAlone(PosixProcessLauncher& processes, const std::string& shell,
                                const std::string& line) {
    const auto program = programOfShellCommand(line);
    const auto patterns = program ? patternsOf(*program) : std::nullopt;
    if (!patterns) {
        return false;
    }
    // The words stand in the place of arguments, so that nothing of them runs. No word has a line
    // end, so that one tells them apart.
    std::string words;
    std::string expected;
    for (const std::string& pattern : *patterns) {
        words += wordFor(pattern) + ' ';
        expected += pattern + '\n';
    }
    const auto environment = shellEnvironment();
    try {
        return processes
                   .launchProcess(shell,
                                  {"-c",
                                   "IFS='\n'; set -- " + words + line + "; [ \"$*\" = \"$0\" ]",
                                   expected + *program + "\ntrue"},
                                  nullptr, &environment)
                   ->waitUntilExit() == 0;
    } catch (const std::system_error&) {
        return false;
    }
}

} // namespace Vexora
