#include "Tags.h"

#include <algorithm>
#include <string>
#include <vector>

namespace CheckStrings {

namespace {

struct Tag {
    /// With its attributes, if it has any.
    std::string_view name;
    bool closes;
};

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

std::vector<Tag> tagsOf(std::string_view text) {
    std::vector<Tag> tags;
    for (std::size_t open = text.find('<'); open != std::string_view::npos;
         open = text.find('<', open + 1)) {
        const std::size_t end = text.find_first_of("<>", open + 1);
        if (end == std::string_view::npos || text[end] == '<') {
            continue;
        }
        const bool closes = text[open + 1] == '/';
        const std::size_t start = open + (closes ? 2 : 1);
        if (isLetter(text[start])) {
            tags.push_back({text.substr(start, end - start), closes});
        }
    }
    return tags;
}

std::string written(const Tag& tag) {
    return (tag.closes ? "</" : "<") + std::string(tag.name) + ">";
}

/// Reports what breaks the order of opening and closing, for tags that all are the key's.
void checkPairs(const std::vector<Tag>& tags, std::size_t line, FileReport& report) {
    std::vector<Tag> open;
    bool balanced = true;
    bool nested = false;
    for (const Tag& tag : tags) {
        if (!tag.closes) {
            nested |= !open.empty();
            open.push_back(tag);
        } else if (!open.empty() && open.back().name == tag.name) {
            open.pop_back();
        } else {
            balanced = false;
        }
    }
    if (!balanced || !open.empty()) {
        report.add(line, Rule::UnbalancedTags, "every opening tag needs its closing one behind it");
    }
    if (nested) {
        report.add(line, Rule::NestedTags, "no tag may open before the last one is closed");
    }
}

} // namespace

void checkTags(std::string_view key, std::string_view text, std::size_t line, FileReport& report) {
    const std::vector<Tag> wanted = tagsOf(key);
    std::vector<Tag> own;
    for (const Tag& tag : tagsOf(text)) {
        if (std::ranges::find(wanted, tag.name, &Tag::name) == wanted.end()) {
            report.add(line, Rule::ForeignTags, "the key has no " + written(tag));
        } else {
            own.push_back(tag);
        }
    }
    checkPairs(own, line, report);
    if (own.empty() && !wanted.empty()) {
        report.add(line, Rule::MissingTags, "the text lacks " + written(wanted.front()));
    }
}

} // namespace CheckStrings
