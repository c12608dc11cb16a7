// Compares the program that is read from an arbitrary line with what a shell reads there by its rules
// for words, and has every program come back whose name a shell does not act on.
#include "Platform/Posix/ShellCommand.h"

#include "Fuzzing.h"

#include <optional>
#include <string>
#include <vector>

using Fuzzing::require;
using Vexora::programOfShellCommand;

namespace {

using Words = std::vector<std::string>;

/// What makes a shell do something, unless a backslash stands before it.
bool isActive(char character) {
    return std::string("$`;|&<>()'\"\n").find(character) != std::string::npos;
}

/// The words that a shell reads; nothing where it would do more.
std::optional<Words> wordsOf(const std::string& line) {
    Words words;
    bool isInWord = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == ' ' || line[at] == '\t') {
            isInWord = false;
            continue;
        }
        const bool isEscaped = line[at] == '\\' && at + 1 < line.size();
        at += isEscaped ? 1 : 0;
        if (isActive(line[at]) && (!isEscaped || line[at] == '\n')) {
            return std::nullopt;
        }
        if (!isInWord) {
            words.emplace_back();
        }
        isInWord = true;
        words.back() += line[at];
    }
    return words;
}

std::string lineFor(const std::string& program) {
    std::string line;
    for (const char character : program) {
        line += character == ' ' ? std::string("\\ ") : std::string{character};
    }
    return line + " true";
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    const std::string program = "/" + input;
    for (const std::string& line : {input, program, lineFor(program)}) {
        if (const auto accepted = programOfShellCommand(line)) {
            require(accepted->starts_with('/'), "accepted without its place", line);
            require(wordsOf(line) == Words{*accepted, "true"}, "accepted, but read otherwise",
                    line);
        }
    }
    const bool isPlain = program.find_first_of("\\\t") == std::string::npos &&
                         wordsOf(lineFor(program)) == Words{program, "true"};
    const auto expected = isPlain ? std::optional(program) : std::nullopt;
    require(programOfShellCommand(lineFor(program)) == expected, "another program", program);
}
