// Has the checker look at arbitrary bytes as a reference and a strings file, the parts of an input.
// What it accepts must hold each key of the reference once, on a line as plain as can be, and the
// program must show the text of that line whole.
#include "FileRules.h"

#include "Characters.h"
#include "Fuzzing.h"
#include "kvparser.h"
#include "tr.h"

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

using CheckStrings::Findings;
using Fuzzing::MemoryFile;
using Fuzzing::require;

namespace {

/// The texts on the lines `"key" = "text"`, with their escapes. In a comment there may also be such
/// lines that go on like that, or show nothing: these the program does not read.
std::vector<std::string> textsOf(const std::string& key, std::string_view bytes) {
    const std::string start = "\"" + key + "\" = \"";
    std::vector<std::string> texts;
    while (!bytes.empty()) {
        std::string line(bytes.substr(0, bytes.find('\n')));
        bytes.remove_prefix(std::min(line.size() + 1, bytes.size()));
        while (line.ends_with('\r')) {
            line.pop_back();
        }
        if (line.starts_with(start) && line.ends_with('"') &&
            line.find("\" = \"", start.size()) == std::string::npos &&
            line.find_first_not_of("\"\r", start.size()) != std::string::npos) {
            texts.push_back(line.substr(start.size(), line.size() - start.size() - 1));
        }
    }
    return texts;
}

/// What a writer means by a text with escapes.
std::string meant(std::string_view text) {
    constexpr std::string_view letters = "abtnvfr";
    std::string result;
    for (bool isBehindBackslash = false; const char byte : text) {
        const std::size_t letter = letters.find(byte);
        if (isBehindBackslash) {
            result.back() =
                letter == std::string_view::npos ? byte : static_cast<char>('\a' + letter);
        } else {
            result += byte;
        }
        isBehindBackslash = !isBehindBackslash && byte == '\\';
    }
    return result;
}

std::string withSinglePercents(std::string text) {
    for (std::size_t at = text.find("%%"); at != std::string::npos; at = text.find("%%", at + 1)) {
        text.erase(at, 1);
    }
    return text;
}

bool hasConversion(const std::string& text) {
    return std::ranges::count(withSinglePercents(text), '%') * 2 != std::ranges::count(text, '%');
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // a text without conversions
#pragma GCC diagnostic ignored "-Wformat-security"

void tryAccepted(const std::string& key, const std::string& strings) {
    const std::vector<std::string> texts = textsOf(key, strings);
    require(texts.size() == 1, "accepted with a key that is not there once", key);
    const VXLOCAL::Translator& translator = *VXLOCAL::Translator::getInstance();
    const std::string text = meant(texts.front());
    const std::string plainKey = meant(key).c_str(); // up to its first zero byte
    require(translator.getMessage(plainKey) == text, "accepted, but shown otherwise", key);
    if (!hasConversion(text)) {
        require(translator.tr(plainKey.c_str()) == withSinglePercents(text),
                "accepted, but formatted otherwise", key);
    }
}

#pragma GCC diagnostic pop

void tryPrintable(const std::string& text) {
    const std::string printed = CheckStrings::printable(text);
    require(CheckStrings::decodeUtf8(printed).has_value(), "printed as no UTF-8", text);
    require(
        std::ranges::none_of(printed, [](unsigned char byte) { return byte < 32 || byte == 127; }),
        "a control character is printed", text);
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    tryPrintable(input);
    const MemoryFile reference(takePart(input));
    const MemoryFile strings(input);
    CheckStrings::Keys wanted;
    try {
        wanted = CheckStrings::readKeys(reference.path());
    } catch (const std::exception&) {
        return; // a reference without an entry
    }
    Findings findings;
    CheckStrings::checkStringsFile(strings.path(), wanted, findings);
    for (const CheckStrings::Finding& finding : findings) {
        tryPrintable(finding.text);
    }
    if (!findings.empty()) {
        return;
    }
    VXLOCAL::Translator::getInstance()->init(new VXLOCAL::KVParser(""), "", MemoryFile::folder(),
                                             strings.name());
    for (const std::string& key : wanted) {
        tryAccepted(key, input);
    }
}
