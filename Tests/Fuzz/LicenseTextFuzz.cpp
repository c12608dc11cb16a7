// Compares the text that is read from arbitrary bytes with one that is decoded by hand, and with
// what the checker of licences says of them.
#include "LicenseText.h"

#include "Fuzzing.h"
#include "Platform/Posix/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>

using Fuzzing::require;

namespace {

std::string utf8Of(char32_t point) {
    const auto tail = [point](unsigned shift) {
        return static_cast<char>(0x80U | ((point >> shift) & 0x3FU));
    };
    if (point < 0x80) {
        return {static_cast<char>(point)};
    }
    if (point < 0x800) {
        return {static_cast<char>(0xC0U | point >> 6U), tail(0)};
    }
    if (point < 0x10000) {
        return {static_cast<char>(0xE0U | point >> 12U), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0U | point >> 18U), tail(12), tail(6), tail(0)};
}

/// The text of units, nothing where half a pair of surrogates stands alone.
std::optional<std::string> decoded(std::u16string_view units) {
    std::string text;
    while (!units.empty()) {
        char32_t point = units.front();
        units.remove_prefix(1);
        if (point >= 0xDC00 && point < 0xE000) {
            return std::nullopt;
        }
        if (point >= 0xD800 && point < 0xDC00) {
            if (units.empty() || units.front() < 0xDC00 || units.front() >= 0xE000) {
                return std::nullopt;
            }
            point = 0x10000 + ((point - 0xD800) << 10U) + (units.front() - 0xDC00U);
            units.remove_prefix(1);
        }
        text += utf8Of(point);
    }
    return text;
}

std::optional<std::string> decodedFile(std::string_view bytes) {
    const bool isBigEndian = bytes.starts_with("\xFE\xFF");
    if ((!isBigEndian && !bytes.starts_with("\xFF\xFE")) || bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    std::u16string units;
    for (std::size_t at = 2; at < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        units += static_cast<char16_t>(isBigEndian ? first << 8 | second : second << 8 | first);
    }
    return decoded(units);
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    const MemoryFile file(input);
    const auto text = Vexora::PosixFileSystem().utf16TextOfFile(file.path());
    require(text == decodedFile(input), "another text", input);
    require(CheckStrings::wrongEncoding(input) || (text && !text->empty()), "no text, but accepted",
            input);
    require(!CheckStrings::wrongEncoding(input) || !text || text->empty() ||
                text->find('\0') != std::string::npos || text->starts_with("\uFEFF") ||
                text->starts_with("\uFFFE"),
            "sound, but not accepted", input);
}
