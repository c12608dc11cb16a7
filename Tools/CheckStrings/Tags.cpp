#include "Tags.h"

#include "Characters.h"

#include <algorithm>
#include <string>
#include <vector>

namespace CheckStrings {

namespace {

constexpr auto none = std::string_view::npos;

struct Tag {
    /// With its attributes, if it has any.
    std::string_view name;
    bool closes;
    /// Where the tag starts, and where what follows it starts.
    std::size_t start;
    std::size_t end;
};

struct Pair {
    Tag open;
    Tag close;
};

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Whether what stands between angle brackets is one word, but for blanks and slashes around it.
bool looksLikeTag(std::string_view inside) {
    const std::size_t start = inside.find_first_not_of(" \t/");
    if (start == none) {
        return false;
    }
    const std::string_view word = inside.substr(start, inside.find_last_not_of(" \t/") + 1 - start);
    return std::ranges::all_of(word, isLetter);
}

/// \param lookAlikes whether what merely looks like a tag counts.
std::vector<Tag> tagsOf(std::string_view text, bool lookAlikes) {
    std::vector<Tag> tags;
    for (std::size_t open = text.find('<'); open != none; open = text.find('<', open + 1)) {
        const std::size_t end = text.find_first_of("<>", open + 1);
        if (end == none || text[end] == '<') {
            continue;
        }
        const bool closes = text[open + 1] == '/';
        const std::size_t start = open + (closes ? 2 : 1);
        const std::string_view name = text.substr(start, end - start);
        if (isLetter(text[start]) || (lookAlikes && looksLikeTag(name))) {
            tags.push_back({name, closes, open, end + 1});
        }
    }
    return tags;
}

std::string written(const Tag& tag) {
    return (tag.closes ? "</" : "<") + std::string(tag.name) + ">";
}

/// Pairs the tags off, all of which are the key's, and reports those without partner or inside
/// others.
/// \return the pairs; none when something was reported.
std::vector<Pair> pairsOf(const std::vector<Tag>& tags, std::size_t line, FileReport& report) {
    std::vector<Pair> pairs;
    std::vector<Tag> open;
    bool balanced = true;
    bool nested = false;
    for (const Tag& tag : tags) {
        if (!tag.closes) {
            nested |= !open.empty();
            open.push_back(tag);
        } else if (!open.empty() && open.back().name == tag.name) {
            pairs.push_back({open.back(), tag});
            open.pop_back();
        } else {
            balanced = false;
        }
    }
    balanced &= open.empty();
    if (!balanced) {
        report.add(line, Rule::UnbalancedTags, "every opening tag needs its closing one behind it");
    }
    if (nested) {
        report.add(line, Rule::NestedTags, "no tag may open before the last one is closed");
    }
    return balanced && !nested ? pairs : std::vector<Pair>();
}

/// Compares how often each of the key's opening tags stands in the text.
void checkCounts(const std::vector<Tag>& wanted, const std::vector<Tag>& own, std::size_t line,
                 FileReport& report) {
    std::vector<std::string> seen;
    for (const Tag& tag : wanted) {
        const std::string name = written(tag);
        if (tag.closes || std::ranges::find(seen, name) != seen.end()) {
            continue;
        }
        seen.push_back(name);
        const auto inKey = std::ranges::count(wanted, name, written);
        const auto inText = std::ranges::count(own, name, written);
        if (inText > inKey) {
            report.add(line, Rule::RepeatedTags, "the text has " + name + " too often");
        } else if (inText < inKey) {
            report.add(line, Rule::MissingTags, "the text lacks " + name);
        }
    }
}

} // namespace

void checkTags(std::string_view key, std::string_view text, std::size_t line, FileReport& report) {
    const std::vector<Tag> wanted = tagsOf(key, false);
    std::vector<Tag> own;
    for (const Tag& tag : tagsOf(text, !wanted.empty())) {
        if (std::ranges::find(wanted, tag.name, &Tag::name) == wanted.end()) {
            report.add(line, Rule::ForeignTags, "the key has no " + written(tag));
        } else {
            own.push_back(tag);
        }
    }
    const std::vector<Pair> pairs = pairsOf(own, line, report);
    if (pairs.size() * 2 == own.size()) {
        checkCounts(wanted, own, line, report);
    }
    for (const Pair& pair : pairs) {
        if (isBlank(text.substr(pair.open.end, pair.close.start - pair.open.end))) {
            report.add(line, Rule::EmptyTags, "nothing stands behind " + written(pair.open));
        }
    }
}

} // namespace CheckStrings
