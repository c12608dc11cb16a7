// The tags of a text, such as <b> and </b>, against those of its key.
#pragma once

#include "Finding.h"

#include <string_view>

namespace CheckStrings {

/// Reports tags without partner, tags inside others, tags that the key does not have, and a text
/// without the tags of its key. A tag is what stands between angle brackets and begins with a
/// letter, or with a slash and a letter; other angle brackets are plain text.
void checkTags(std::string_view key, std::string_view text, std::size_t line, FileReport& report);

} // namespace CheckStrings
