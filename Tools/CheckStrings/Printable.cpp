#include "Printable.h"

#include "Utf8.h"

#include <cstdint>

namespace CheckStrings {

namespace {

bool isControl(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point < 0xA0);
}

std::string escaped(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes) {
        const auto value = static_cast<std::uint8_t>(byte);
        text += {'\\', 'x', digits[value / 16], digits[value % 16]};
    }
    return text;
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto character = firstCharacter(text);
        const std::string_view bytes = text.substr(0, character ? character->length : 1);
        if (!character || isControl(character->point)) {
            result += escaped(bytes);
        } else {
            result += bytes;
        }
        text.remove_prefix(bytes.size());
    }
    return result;
}

} // namespace CheckStrings
