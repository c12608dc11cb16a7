#include "trtools.h"

#include <cassert>
#include <iostream>

#include <sys/stat.h>

namespace VXLOCAL::TRTools {

namespace {

constexpr std::string_view whitespaceCharacters = " \t\n\r\f\v";
constexpr mode_t directoryBit = 0x4000;

constexpr bool isControl(char byte) {
    return byte >= '\a' && byte <= '\r';
}

constexpr bool isEscaped(char byte) {
    return isControl(byte) || byte == '"' || byte == '\\';
}

/// What stands for a byte in its escaped form, behind the backslash if there is one.
constexpr char escapeLetter(char byte) {
    return isControl(byte) ? "abtnvfr"[byte - '\a'] : byte;
}

/// What a backslash and this letter stand for.
constexpr char unescapedByte(char letter) {
    switch (letter) {
    case 'a':
        return '\a';
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case 'v':
        return 'v';
    default:
        return '\\';
    }
}

} // namespace

std::vector<std::string> split(const std::string& text, const std::string& separator) {
    assert(!separator.empty());
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos;
         end = text.find(separator, start)) {
        pieces.emplace_back(text, start, end - start);
        start = end + separator.size();
    }
    if (start < text.size()) {
        pieces.emplace_back(text, start);
    }
    return pieces;
}

std::string trim(const std::string& text, const std::string& characters, bool whitespace) {
    std::string removed(whitespace ? whitespaceCharacters : std::string_view());
    removed += characters;
    const std::size_t first = text.find_first_not_of(removed);
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(removed) - first + 1);
}

std::string escape(const std::string& text) {
    std::string escaped(2 * text.size(), '\\');
    char* end = escaped.data();
    for (const char byte : text) {
        if (isEscaped(byte)) {
            ++end; // Behind the backslash, otherwise in its place.
        }
        *end++ = escapeLetter(byte);
    }
    escaped.erase(static_cast<std::size_t>(end - escaped.data()));
    return escaped;
}

bool needsEscape(std::string_view text) {
    // Compilers can do this for many bytes at once.
    unsigned escaped = 0;
    for (const char byte : text) {
        escaped |= static_cast<unsigned>(isEscaped(byte));
    }
    return escaped != 0;
}

std::string unescape(const std::string& text) {
    std::string plain(text);
    char* end = plain.data();
    for (std::size_t i = 0; i < text.size(); ++i) {
        // Behind the last byte stands the string's zero, which is no letter.
        *end++ = text[i] == '\\' ? unescapedByte(text[++i]) : text[i];
    }
    plain.erase(static_cast<std::size_t>(end - plain.data()));
    return plain;
}

std::string localeCountry(const std::string& locale) {
    const std::vector<std::string> pieces = split(locale, "_");
    return pieces.empty() ? locale : pieces.front();
}

bool localeHasRegion(const std::string& locale) {
    return split(locale, "_").size() > 1;
}

bool pathExists(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0;
}

bool dirExists(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && (status.st_mode & directoryBit) != 0;
}

void printBytes(const std::string& text) {
    std::cout << "Printing bytes of: " << text << '\n' << std::flush;
    for (const char byte : text) {
        std::cout << std::hex << byte << '\n' << std::flush;
    }
}

} // namespace VXLOCAL::TRTools
