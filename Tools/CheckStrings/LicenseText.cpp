#include "LicenseText.h"

#include <cstddef>
#include <cstdint>

namespace CheckStrings {

namespace {

/// The UTF-16 unit at this byte.
unsigned unitAt(std::string_view bytes, std::size_t index, bool bigEndian) {
    const auto first = static_cast<std::uint8_t>(bytes[index]);
    const auto second = static_cast<std::uint8_t>(bytes[index + 1]);
    return bigEndian ? first * 256U + second : second * 256U + first;
}

/// \return whether each high surrogate stands before a low one, and each low one behind a high one.
bool hasSoundSurrogates(std::string_view bytes, bool bigEndian) {
    bool afterHigh = false;
    for (std::size_t index = 0; index < bytes.size(); index += 2) {
        const unsigned unit = unitAt(bytes, index, bigEndian);
        const bool isLow = unit >= 0xDC00 && unit < 0xE000;
        if (isLow != afterHigh) {
            return false;
        }
        afterHigh = unit >= 0xD800 && unit < 0xDC00;
    }
    return !afterHigh;
}

bool holdsZero(std::string_view bytes) {
    for (std::size_t index = 0; index < bytes.size(); index += 2) {
        if (bytes[index] == 0 && bytes[index + 1] == 0) {
            return true;
        }
    }
    return false;
}

/// \return whether another mark, in either byte order, follows the first one.
bool hasSecondMark(std::string_view bytes) {
    const std::string_view second = bytes.substr(2, 2);
    return second == "\xFE\xFF" || second == "\xFF\xFE";
}

} // namespace

std::optional<std::string> wrongEncoding(std::string_view bytes) {
    const bool bigEndian = bytes.starts_with("\xFE\xFF");
    if (!bigEndian && !bytes.starts_with("\xFF\xFE")) {
        return "the file does not begin with a byte-order mark of UTF-16";
    }
    if (bytes.size() % 2 != 0) {
        return "the file has an odd number of bytes";
    }
    if (bytes.size() == 2) {
        return "the file has no text behind its byte-order mark";
    }
    if (hasSecondMark(bytes)) {
        return "the file has a second byte-order mark behind the first";
    }
    if (holdsZero(bytes)) {
        return "the file holds U+0000, as UTF-32 would";
    }
    if (!hasSoundSurrogates(bytes, bigEndian)) {
        return "the file holds half a pair of surrogates";
    }
    return std::nullopt;
}

} // namespace CheckStrings
