#include "tr.h"

#include "parser.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

namespace VXLOCAL {

namespace {

constexpr char parserIsNull[] = "Parser is NULL\n";

constexpr std::size_t bufferSize = 1000;
/// What vsnprintf may use of the buffer, its terminating zero included.
constexpr std::size_t formatLimit = bufferSize - 1;
constexpr std::size_t longestResult = formatLimit - 1;

} // namespace

Translator::Translator() = default;

Translator::~Translator() {
    // As in init(), a catalogue that translates while it is destroyed is no longer there.
    currentParser.reset();
}

void Translator::init(Parser* parser, const std::string& locale, const std::string& folder,
                      const std::string& filename) {
    if (parser == nullptr) {
        // Callers that catch standard exceptions only are to let this one pass.
        // NOLINTNEXTLINE(misc-throw-by-value-catch-by-reference)
        throw static_cast<const char*>(parserIsNull);
    }
    currentParser.reset();
    currentParser.reset(parser);
    currentParser->setLocaleDir(folder);
    currentParser->setFilename(filename);
    currentParser->setLocale(locale);
    currentParser->parse();
}

void Translator::setLocale(const std::string& locale) {
    if (currentParser) {
        currentParser->setLocale(locale);
        currentParser->parse();
    }
}

void Translator::setLocaleDir(const std::string& folder) {
    if (currentParser) {
        currentParser->setLocaleDir(folder);
    }
}

std::string Translator::localeDir() const {
    return currentParser ? currentParser->getLocaleDir() : std::string();
}

std::string Translator::localeFile(const std::string& locale) const {
    return currentParser ? currentParser->localeFile(locale) : std::string();
}

std::string Translator::getMessage(const std::string& key) const {
    return currentParser ? currentParser->getMessage(key) : key;
}

std::string Translator::tr(const char* text, ...) const {
    std::string key = std::move(key_);
    key = text;
    std::string result = getMessage(key);
    key_ = std::move(key);

    // Formatting copies a text without a percent sign, up to its first zero byte and the limit.
    if (result.find('%') == std::string::npos) {
        result.resize(std::min(std::strlen(result.c_str()), longestResult));
        return result;
    }

    // Cleared, since a conversion that fails may leave it without a terminating zero.
    char buffer[bufferSize] = {};
    std::va_list arguments;
    va_start(arguments, text);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // the format comes from the catalogue
    static_cast<void>(std::vsnprintf(buffer, formatLimit, result.c_str(), arguments));
#pragma GCC diagnostic pop
    va_end(arguments);
    result.assign(buffer);
    return result;
}

} // namespace VXLOCAL
