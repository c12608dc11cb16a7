// Compares the runs of a tagged text, and the text without tags, with what a walk over the single
// bytes finds. The first part of an input is the opening tag, the rest the text.
#include "Core/Markup.h"

#include "Fuzzing.h"

#include <optional>
#include <string>
#include <string_view>

using Fuzzing::require;
using Vexora::Color;
using Vexora::Font;
using Vexora::StyledText;

namespace {

const Font font{"QuillaSans-SemiBold", 18.0};
const Color color{0.24, 0.44, 0.70, 1.0};

/// The places where an opening tag starts that lies in no other as 1, all others as 0.
std::string openingsIn(std::string_view text, std::string_view opening) {
    std::string found(text.size(), '0');
    for (std::size_t at = 0; at < text.size();) {
        const bool opens = text.substr(at, opening.size()) == opening;
        found[at] = opens ? '1' : '0';
        at += opens ? opening.size() : 1;
    }
    return found;
}

std::string closingOf(const std::string& opening) {
    std::string closing;
    for (const char byte : opening) {
        const bool isInside = (static_cast<unsigned char>(byte) >> 6U) == 2;
        if (closing.find('/') == std::string::npos && !closing.empty() && !isInside) {
            closing += '/';
        }
        closing += byte;
    }
    return closing;
}

/// A closing tag counts behind the first opening one, and where no opening one starts inside it.
StyledText rendered(const std::string& text, const std::string& opening) {
    const std::string closing = closingOf(opening);
    const std::string openings = openingsIn(text, opening);
    StyledText result;
    Vexora::TextRun run;
    bool isBehindOpening = false;
    for (std::size_t at = 0; at < text.size();) {
        const bool opens = openings[at] == '1';
        const bool closes = !opens && isBehindOpening &&
                            text.substr(at, closing.size()) == closing &&
                            openings.substr(at, closing.size()).find('1') == std::string::npos;
        if (!opens && !closes) {
            run.text += text[at++];
            continue;
        }
        result.append(run);
        run = opens ? Vexora::TextRun{"", font, color} : Vexora::TextRun{};
        isBehindOpening = true;
        at += opens ? opening.size() : closing.size();
    }
    result.append(run);
    return result;
}

std::string withoutTags(std::string_view text) {
    constexpr std::string_view inside = "/ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::string result;
    while (!text.empty()) {
        const std::size_t end = text.find('>');
        if (text.front() == '<' && end != std::string_view::npos &&
            text.substr(1, end - 1).find_first_not_of(inside) == std::string_view::npos) {
            text.remove_prefix(end + 1);
        } else {
            result += text.front();
            text.remove_prefix(1);
        }
    }
    return result;
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    std::string opening = takePart(input);
    if (opening.empty()) {
        opening = "<b>";
    }
    require(Vexora::renderMarkup(input, opening, font, color) == rendered(input, opening),
            "other runs", input);
    require(Vexora::removeTags(input) == withoutTags(input), "other text without tags", input);
}
