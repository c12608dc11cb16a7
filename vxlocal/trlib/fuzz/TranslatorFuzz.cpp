// Has the translator read arbitrary bytes as a strings file, and compares what it makes of each text
// in it with the message put together by hand. Messages whose conversions do not fit the arguments,
// which a strings file must not hold, are left out.
#include "tr.h"

#include "Fuzzing.h"
#include "kvparser.h"
#include "trtools.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

using namespace VXLOCAL;
using Fuzzing::require;

namespace {

constexpr std::size_t longestResult = 998;
constexpr int mostConversions = 4;

/// Takes what stands at the start of a text while it is one of these characters, three at most.
std::string_view take(std::string_view& text, std::string_view characters) {
    const std::size_t length =
        std::min({text.find_first_not_of(characters), text.size(), std::size_t{3}});
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(length);
    return taken;
}

/// The argument as wide as the format says that begins behind a percent sign.
/// \param format loses its conversion.
/// \return nothing when it begins with no conversion by this letter, or with a rarer one.
std::optional<std::string> converted(std::string_view& format, char letter, std::string argument) {
    const bool isLeft = !take(format, "-").empty();
    const std::string width(take(format, "0123456789"));
    if (!format.starts_with(letter) || width.starts_with('0')) {
        return std::nullopt;
    }
    format.remove_prefix(1);
    const std::size_t least = width.empty() ? 0 : std::stoul(width);
    while (argument.size() < least) {
        argument.insert(isLeft ? argument.size() : 0, 1, ' ');
    }
    return argument;
}

/// The whole format with the argument in each place.
std::optional<std::string> formatted(std::string_view format, char letter,
                                     const std::string& argument) {
    std::string result;
    int conversions = 0;
    while (!format.empty()) {
        const char first = format.front();
        format.remove_prefix(1);
        if (first != '%') {
            result += first;
        } else if (format.starts_with('%')) {
            result += '%';
            format.remove_prefix(1);
        } else if (const auto text = converted(format, letter, argument);
                   text && ++conversions <= mostConversions) {
            result += *text;
        } else {
            return std::nullopt;
        }
    }
    return result.substr(0, longestResult);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // the formats are the inputs

void tryText(const Translator& translator, const KVParser& catalogue, const std::string& text) {
    require(translator.getMessage(text) == catalogue.getMessage(text), "another message", text);
    const std::string key = text.c_str(); // up to its first zero byte
    const std::string message = catalogue.getMessage(key).c_str();
    if (const auto expected = formatted(message, 's', "a\xC3\xA4")) {
        const char* argument = "a\xC3\xA4";
        require(translator.tr(key.c_str(), argument, argument, argument, argument) == *expected,
                "otherwise formatted with texts", key);
    }
    if (const auto expected = formatted(message, 'd', "-42")) {
        require(translator.tr(key.c_str(), -42, -42, -42, -42) == *expected,
                "otherwise formatted with numbers", key);
    }
}

#pragma GCC diagnostic pop

} // namespace

void Fuzzing::tryInput(std::string input) {
    const MemoryFile file(input);
    KVParser catalogue(file.name().c_str());
    catalogue.setLocaleDir(MemoryFile::folder());
    catalogue.parse();
    Translator& translator = *Translator::getInstance();
    translator.init(new KVParser(""), "de", MemoryFile::folder(), file.name());
    tryText(translator, catalogue, input);
    for (const std::string& line : TRTools::split(input, "\n")) {
        const std::string key = line.substr(0, line.find("\" = \""));
        for (const std::string& text : {key, TRTools::unescape(TRTools::trim(key, "\"", false))}) {
            tryText(translator, catalogue, text);
        }
    }
}
