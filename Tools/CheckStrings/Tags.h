// The tags of a text, such as <b> and </b>, against those of its key.
#pragma once

#include "Finding.h"

#include <string_view>

namespace CheckStrings {

/// Reports tags without partner, tags inside others, tags with nothing between them, tags that the
/// key does not have, and tags that stand there more or less often than in the key.
///
/// A tag is what stands between angle brackets and begins with a letter, or with a slash and a
/// letter. In a text whose key has tags, a single word in angle brackets with blanks around it, such
/// as `< b >`, counts as well. Other angle brackets are plain text.
void checkTags(std::string_view key, std::string_view text, std::size_t line, FileReport& report);

} // namespace CheckStrings
