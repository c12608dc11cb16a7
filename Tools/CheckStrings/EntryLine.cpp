#include "EntryLine.h"

#include <trtools.h>

#include <algorithm>

namespace CheckStrings {

namespace {

constexpr std::string_view blanks = " \t";
constexpr auto none = std::string_view::npos;

struct Range {
    std::size_t start;
    std::size_t end;
};

std::optional<Range> findSeparator(std::string_view line) {
    const std::size_t start = line.find(separator);
    return start == none ? std::nullopt : std::optional(Range{start, start + separator.size()});
}

/// The first equals sign between two quotes, with any number of blanks around it, quotes included.
std::optional<Range> findLooseSeparator(std::string_view line) {
    for (std::size_t sign = line.find('='); sign != none; sign = line.find('=', sign + 1)) {
        const std::size_t before = line.substr(0, sign).find_last_not_of(blanks);
        const std::size_t behind = line.find_first_not_of(blanks, sign + 1);
        if (before != none && line[before] == '"' && behind != none && line[behind] == '"') {
            return Range{before, behind + 1};
        }
    }
    return std::nullopt;
}

/// Whether a comment stands behind a quote, at least one blank away: `"#"` is a text.
bool startsWithComment(std::string_view behind) {
    const std::size_t start = std::min(behind.find_first_not_of(blanks), behind.size());
    const std::string_view text = behind.substr(start);
    return start > 0 && (text.starts_with("//") || text.starts_with("/*") || text.starts_with('#'));
}

bool startsWithSemicolon(std::string_view behind) {
    const std::size_t start = behind.find_first_not_of(blanks);
    return start != none && behind[start] == ';';
}

/// The first quote before a semicolon or a comment that is not the second of a pair inside the text.
std::size_t findMarkedQuote(std::string_view rest) {
    bool isInside = false;
    for (std::size_t quote = rest.find('"'); quote != none; quote = rest.find('"', quote + 1)) {
        const std::string_view behind = rest.substr(quote + 1);
        if (!isInside && (startsWithSemicolon(behind) || startsWithComment(behind))) {
            return quote;
        }
        isInside = !isInside;
    }
    return none;
}

/// Where the text that starts with `rest` ends. A quote before a semicolon or a comment ends it;
/// otherwise the last quote does, unless more text follows it and it is the second of a pair.
std::optional<std::size_t> findClosingQuote(std::string_view rest) {
    if (const std::size_t marked = findMarkedQuote(rest); marked != none) {
        return marked;
    }
    const std::size_t last = rest.rfind('"');
    if (last == none) {
        return std::nullopt;
    }
    const std::string_view behind = rest.substr(last + 1);
    const bool isAtTheEnd = behind.find_first_not_of(" \t;") == none || startsWithComment(behind);
    const bool isSecondOfAPair = std::ranges::count(rest, '"') % 2 == 0;
    return isAtTheEnd || !isSecondOfAPair ? std::optional(last) : std::nullopt;
}

void readKey(std::string_view head, EntryLine& entry) {
    const std::size_t quote = head.find('"');
    if (quote == none && !head.empty()) {
        entry.broken.push_back(Rule::MissingQuote);
    } else if (quote != none && quote > 0) {
        entry.broken.push_back(Rule::Indentation);
    }
    entry.key = head.substr(quote == none ? 0 : quote + 1);
}

void readValue(std::string_view rest, EntryLine& entry) {
    if (const std::size_t second = rest.find(separator); second != none) {
        entry.broken.push_back(Rule::RepeatedSeparator);
        entry.value = rest.substr(0, second);
        return;
    }
    const auto quote = findClosingQuote(rest);
    if (!quote) {
        entry.broken.push_back(Rule::MissingQuote);
    } else if (*quote + 1 < rest.size()) {
        entry.broken.push_back(Rule::TrailingText);
    }
    entry.value = rest.substr(0, quote.value_or(rest.size()));
}

} // namespace

std::optional<EntryLine> readEntryLine(std::string_view line) {
    const auto exact = findSeparator(line);
    const auto middle = exact ? exact : findLooseSeparator(line);
    if (!middle) {
        return std::nullopt;
    }
    EntryLine entry;
    if (!exact) {
        entry.broken.push_back(Rule::Spacing);
    }
    readKey(line.substr(0, middle->start), entry);
    readValue(line.substr(middle->end), entry);
    if (entry.key.empty() || entry.value.empty()) {
        entry.broken.push_back(Rule::EmptyText);
    }
    return entry;
}

std::optional<std::string> keyInProgram(std::string_view line) {
    using VXLOCAL::TRTools::trim;
    const std::vector<std::string> pieces =
        VXLOCAL::TRTools::split(std::string(line), std::string(separator));
    if (pieces.size() != 2 || trim(trim(pieces[1], "\r", false), "\"", false).empty()) {
        return std::nullopt;
    }
    const std::string key = trim(pieces[0], "\"", false);
    return key.empty() ? std::nullopt : std::optional(key);
}

} // namespace CheckStrings
