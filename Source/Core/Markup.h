// The tiny tag language of translated texts: one tag pair marks the words that must stand out.
// Plain functions over UTF-8 text; any thread.
#pragma once

#include "Platform/StyledText.h"

#include <optional>
#include <string>

namespace Vexora {

/// Turns a tagged text into runs: marked words get the font and the colour, all others no
/// attributes.
///
/// Tags are compared exactly, letter case included. The closing tag is the opening one with "/"
/// behind its first character; one before the first opening tag stays visible. An unclosed tag
/// marks everything up to the next one or the end.
/// \param separator the opening tag, at least one character long.
StyledText renderMarkup(const std::string& text, const std::string& separator, const Font& font,
                        const std::optional<Color>& color);

/// The text without its tags: whatever stands between angle brackets and consists of letters and
/// slashes only.
std::string removeTags(const std::string& text);

} // namespace Vexora
