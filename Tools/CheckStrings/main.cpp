// check-strings: holds strings files and licence texts to what the program can really read.

#include "Characters.h"
#include "CommandLine.h"
#include "FileBytes.h"
#include "FileRules.h"
#include "Resources.h"

#include <algorithm>
#include <exception>
#include <iostream>

namespace {

using namespace CheckStrings;

enum Status { Sound = 0, Found = 1, Failed = 2 };

Findings check(const Request& request) {
    Findings findings;
    const std::filesystem::path& first = request.paths.front();
    std::error_code ignored;
    if (request.paths.size() == 1 && (!request.reference || is_directory(first, ignored))) {
        const Keys wanted = readKeys(request.reference.value_or(defaultReference(first)));
        checkResources(first, wanted, findings);
    } else {
        const Keys wanted = readKeys(request.reference.value());
        std::ranges::for_each(request.paths, readBytes); // throws before the first finding
        for (const std::filesystem::path& file : request.paths) {
            checkStringsFile(file, wanted, findings);
        }
    }
    std::ranges::sort(findings);
    return findings;
}

Status run(const Request& request) {
    if (request.wantsHelp) {
        std::cout << helpText();
        return Sound;
    }
    const Findings findings = check(request);
    for (const Finding& finding : findings) {
        std::cout << printable(finding.file) << ':' << finding.line << ": " << nameOf(finding.rule)
                  << ": " << printable(finding.text) << '\n';
    }
    return findings.empty() ? Sound : Found;
}

} // namespace

int main(int count, char* arguments[]) {
    try {
        const Status status = run(readArguments({arguments + 1, arguments + count}));
        if (!std::cout.flush()) {
            throw std::runtime_error("cannot write to standard output");
        }
        return status;
    } catch (const UsageError& error) {
        std::cerr << "check-strings: " << printable(error.what()) << "; see check-strings --help\n";
    } catch (const std::exception& error) {
        std::cerr << "check-strings: " << printable(error.what()) << '\n';
    }
    return Failed;
}
