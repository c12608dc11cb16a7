// Compares the work on byte strings with the same done byte by byte, for any text and any second
// argument.
#include "trtools.h"

#include "Fuzzing.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

using namespace VXLOCAL;
using Fuzzing::require;

namespace {

/// By byte: what stands behind the backslash.
const std::map<char, char> letters = {{'\a', 'a'}, {'\b', 'b'}, {'\t', 't'},
                                      {'\n', 'n'}, {'\v', 'v'}, {'\f', 'f'},
                                      {'\r', 'r'}, {'"', '"'},  {'\\', '\\'}};

std::vector<std::string> cut(std::string_view text, const std::string& separator) {
    std::vector<std::string> pieces(1);
    while (!text.empty()) {
        if (text.starts_with(separator)) {
            pieces.emplace_back();
            text.remove_prefix(separator.size());
        } else {
            pieces.back() += text.front();
            text.remove_prefix(1);
        }
    }
    if (pieces.back().empty()) {
        pieces.pop_back();
    }
    return pieces;
}

std::string trimmed(std::string text, const std::string& removed) {
    while (!text.empty() && removed.find(text.front()) != std::string::npos) {
        text.erase(0, 1);
    }
    while (!text.empty() && removed.find(text.back()) != std::string::npos) {
        text.pop_back();
    }
    return text;
}

std::string escaped(const std::string& text) {
    std::string result;
    for (const char byte : text) {
        const auto letter = letters.find(byte);
        result += letter == letters.end() ? std::string{byte} : std::string{'\\', letter->second};
    }
    return result;
}

/// What a backslash and this letter stand for.
char unescaped(char letter) {
    for (const auto& [byte, itsLetter] : letters) {
        if (itsLetter == letter && byte != '"' && byte != '\v') {
            return byte;
        }
    }
    return letter == 'v' ? 'v' : '\\';
}

std::string unescaped(const std::string& text) {
    std::string result;
    bool isBehindBackslash = false;
    for (const char byte : text) {
        if (isBehindBackslash) {
            result.back() = unescaped(byte);
            isBehindBackslash = false;
        } else {
            result += byte;
            isBehindBackslash = byte == '\\';
        }
    }
    return result;
}

void tryLocale(const std::string& name) {
    const std::size_t end = name.find('_');
    require(TRTools::localeCountry(name) == name.substr(0, end), "another language", name);
    require(TRTools::localeHasRegion(name) == (end != std::string::npos && end + 1 < name.size()),
            "another answer about the region", name);
}

void tryPath(const std::string& path) {
    const std::string name = path.c_str(); // up to its first zero byte
    const bool exists = access(name.c_str(), F_OK) == 0;
    const bool isFolder = exists && access((name + "/.").c_str(), F_OK) == 0;
    require(TRTools::pathExists(path) == exists, "another answer about the path", path);
    require(exists || !TRTools::dirExists(path), "a folder that does not exist", path);
    require(!isFolder || TRTools::dirExists(path), "a folder denied", path);
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    const std::string other = takePart(input);
    const std::string& text = input;
    if (!other.empty()) {
        require(TRTools::split(text, other) == cut(text, other), "other pieces", text);
    }
    require(TRTools::trim(text, other, false) == trimmed(text, other), "other ends", text);
    require(TRTools::trim(text, other, true) == trimmed(text, other + " \t\n\v\f\r"),
            "other ends, white space removed", text);
    require(TRTools::escape(text) == escaped(text), "otherwise escaped", text);
    require(TRTools::needsEscape(text) == (escaped(text) != text), "other need of escapes", text);
    require(TRTools::unescape(text) == unescaped(text), "otherwise unescaped", text);
    tryLocale(text);
    tryPath(text);
}
