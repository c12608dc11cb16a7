// Makes texts of no language out of English ones, so that a text that is not translated, cut off or
// laid out for one script alone shows at first sight. Plain functions over UTF-8; any thread.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Gallery {

/// The text in accented letters, between brackets, and at least 40 % longer. Tags, printf
/// conversions and the words of the product's name stay as they are.
std::string accented(const std::string& text);

/// The same with letters of a script that is written from right to left.
std::string rightToLeft(const std::string& text);

/// The text without the tags of the markup.
std::string withoutTags(const std::string& text);

/// How many characters a text has.
std::size_t characterCount(const std::string& text);

/// The printf conversions of a text in their order, the doubled percent sign left out. A percent
/// sign that begins no conversion is one by itself.
std::vector<std::string> conversions(const std::string& text);

} // namespace Gallery
