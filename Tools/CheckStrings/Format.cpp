#include "Format.h"

#include <algorithm>
#include <iterator>

namespace CheckStrings {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view flags = "-+ #0'";
constexpr std::string_view lengths = "hlqLjzt";
constexpr std::string_view letters = "diouxXeEfFgGaAcCsSpnm";

using Arguments = std::vector<std::string>;

/// The first index from `start` whose character is none of these.
std::size_t skip(std::string_view text, std::size_t start, std::string_view characters) {
    return std::min(text.find_first_not_of(characters, start), text.size());
}

/// Skips a width or a precision, which may be an argument.
std::size_t skipNumber(std::string_view text, std::size_t start, Arguments& arguments) {
    if (text.substr(start, 1) == "*") {
        arguments.emplace_back("*");
        return start + 1;
    }
    return skip(text, start, digits);
}

bool isPositional(std::string_view text) {
    const std::size_t end = skip(text, 0, digits);
    return end > 0 && text.substr(end, 1) == "$";
}

/// Skips what stands between the percent sign and the length.
std::size_t skipLayout(std::string_view text, Arguments& arguments) {
    if (isPositional(text)) {
        return skip(text, 0, "0123456789$*.-+ #'");
    }
    const std::size_t width = skip(text, 0, flags);
    const std::size_t end = skipNumber(text, width, arguments);
    return text.substr(end, 1) == "." ? skipNumber(text, end + 1, arguments) : end;
}

/// Reads the conversion that a text starts with, behind its percent sign.
/// \return its length, or 0 when the text starts with none.
std::size_t readConversion(std::string_view text, Format& format) {
    Arguments arguments;
    const std::size_t start = skipLayout(text, arguments);
    const std::size_t letter = skip(text, start, lengths);
    if (letter == text.size() || letters.find(text[letter]) == std::string_view::npos) {
        return 0;
    }
    arguments.emplace_back(isPositional(text) ? text.substr(0, letter + 1)
                                              : text.substr(start, letter + 1 - start));
    std::ranges::move(arguments, std::back_inserter(format.conversions));
    return letter + 1;
}

} // namespace

Format readFormat(std::string_view text) {
    Format format;
    while (!text.empty()) {
        if (text.starts_with("%%")) {
            text.remove_prefix(2);
            ++format.literalBytes;
            continue;
        }
        const char first = text.front();
        text.remove_prefix(1);
        const std::size_t length = first == '%' ? readConversion(text, format) : 0;
        text.remove_prefix(length);
        format.literalBytes += length == 0 ? 1 : 0;
        format.hasSinglePercent |= first == '%' && length == 0;
    }
    return format;
}

} // namespace CheckStrings
