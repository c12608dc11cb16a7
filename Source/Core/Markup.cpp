#include "Core/Markup.h"

#include <string_view>
#include <vector>

namespace Vexora {
namespace {

/// The pieces between the occurrences of the separator, empty ones included.
std::vector<std::string_view> piecesOf(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    for (std::size_t found = text.find(separator); found != std::string_view::npos;
         found = text.find(separator, start)) {
        pieces.push_back(text.substr(start, found - start));
        start = found + separator.size();
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

/// The opening tag with "/" behind its first character, which may take several bytes.
std::string closingTagOf(const std::string& separator) {
    std::size_t end = 1;
    while ((separator[end] & '\xC0') == '\x80') {
        ++end;
    }
    return std::string(separator).insert(end, 1, '/');
}

bool isTagCharacter(char character) {
    return character == '/' || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z');
}

} // namespace

StyledText renderMarkup(const std::string& text, const std::string& separator, const Font& font,
                        const std::optional<Color>& color) {
    const std::string closingTag = closingTagOf(separator);
    StyledText result;
    const auto segments = piecesOf(text, separator);
    result.append({std::string(segments.front()), {}, {}});
    for (std::size_t segment = 1; segment < segments.size(); ++segment) {
        const auto parts = piecesOf(segments[segment], closingTag);
        result.append({std::string(parts.front()), font, color});
        for (std::size_t part = 1; part < parts.size(); ++part) {
            result.append({std::string(parts[part]), {}, {}});
        }
    }
    return result;
}

std::string removeTags(const std::string& text) {
    std::string result;
    std::size_t position = 0;
    while (position < text.size()) {
        std::size_t end = position + 1;
        if (text[position] == '<') {
            // The zero behind the text ends it too.
            while (isTagCharacter(text[end])) {
                ++end;
            }
            if (text[end] == '>') {
                position = end + 1;
                continue;
            }
        }
        result.append(text, position, end - position);
        position = end;
    }
    return result;
}

} // namespace Vexora
