#include "CommandLine.h"

#include "Rules.h"

#include <algorithm>

namespace CheckStrings {

namespace {

constexpr const char* introduction =
    R"(Usage: check-strings [--reference FILE] RESOURCES
       check-strings --reference FILE STRINGS...

Checks the translations in a staged resource directory, RESOURCES, with its folders xx.lproj and its
licence files LA_xx, or single strings files. Their keys must be those of the reference, which is
RESOURCES/en.lproj/Localizable.strings unless another file is named.

Each finding takes a line "file:line: rule: text"; line 0 stands for the file as a whole.
Control characters and what is not valid UTF-8 are written as \x and two digits per byte.
The status is 0 without findings, 1 with findings, and 2 when the arguments make no sense or when a
file named in them, the reference or RESOURCES itself cannot be read.

An entry is a line "key" = "text"; what stands between key and text, quotes included, is its
separator. Blank lines, lines that begin with # or //, and what stands between /* and */ are no
entries.

A text must have its key's printf conversions: the same letters and lengths in the same order.
Flags and widths may differ. Conversions such as %1$s, which choose their argument by position,
differ from those of any key. For the length of a text, conversions count nothing and %% counts one.

Rules:
)";

} // namespace

Request readArguments(const std::vector<std::string>& arguments) {
    Request request;
    if (std::ranges::find(arguments, "--help") != arguments.end()) {
        request.wantsHelp = true;
        return request;
    }
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--reference") {
            if (request.reference || ++argument == arguments.end()) {
                throw UsageError("--reference takes one file, once");
            }
            request.reference = *argument;
        } else if (argument->starts_with("-")) {
            throw UsageError("unknown option " + *argument);
        } else {
            request.paths.emplace_back(*argument);
        }
    }
    if (request.paths.empty()) {
        throw UsageError("nothing to check");
    }
    if (request.paths.size() > 1 && !request.reference) {
        throw UsageError("strings files are checked against the file behind --reference");
    }
    return request;
}

std::string helpText() {
    constexpr std::size_t column = 20;
    std::string text = introduction;
    for (const RuleText& rule : allRules) {
        text += "  " + std::string(rule.name) + std::string(column - rule.name.size(), ' ') +
                std::string(rule.meaning) + "\n";
    }
    return text;
}

} // namespace CheckStrings
