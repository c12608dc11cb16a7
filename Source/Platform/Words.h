// What of a text describes the control beside it.
#pragma once

#include "Platform/StyledText.h"

#include <string>

namespace Vexora {

/// The characters of a text without those of links, which have a colour of their own, and without
/// the blank that separates the two.
inline std::string wordsBesideLinks(const StyledText& text) {
    std::string words;
    for (const TextRun& run : text.runs()) {
        words += run.color ? std::string() : run.text;
    }
    return words.substr(0, words.find_last_not_of(' ') + 1);
}

} // namespace Vexora
