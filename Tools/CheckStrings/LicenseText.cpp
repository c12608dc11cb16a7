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

/// @return whether each high surrogate stands before a low one, and each low one behind a high one.
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

} // namespace

std::optional<std::string> licenseFault(std::string_view bytes) {
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
    if (!hasSoundSurrogates(bytes, bigEndian)) {
        return "the file holds half a pair of surrogates";
    }
    return std::nullopt;
}

} // namespace CheckStrings
