#include "StringsFile.h"

#include "Characters.h"
#include "EntryLine.h"

#include <trtools.h>

#include <algorithm>
#include <array>
#include <utility>

namespace CheckStrings {

namespace {

using namespace std::string_view_literals;

constexpr auto none = std::string_view::npos;

struct Mark {
    std::string_view bytes;
    std::string_view encoding;
};

constexpr std::array<Mark, 3> marks = {{
    {"\xEF\xBB\xBF"sv, "UTF-8"sv},
    {"\xFE\xFF"sv, "UTF-16"sv},
    {"\xFF\xFE"sv, "UTF-16"sv},
}};

/// Takes the lines of one file, one after the other.
class LineReader {
public:
    explicit LineReader(FileReport& report) : report_(report) {}

    /// \param line without line feed.
    void read(std::string_view line);

    Strings takeStrings() { return std::move(strings_); }

private:
    bool isComment(std::string_view line);
    void readCommented(std::string_view line);
    void readEntry(std::string_view line);

    FileReport& report_;
    Strings strings_;
    std::size_t number_ = 0;
    bool inComment_ = false;
};

void LineReader::read(std::string_view line) {
    ++number_;
    line = line.substr(0, line.find_last_not_of('\r') + 1);
    if (!decodeUtf8(line)) {
        report_.add(number_, Rule::InvalidUtf8, "the line is not valid UTF-8");
    }
    if (!isComment(line) && line.find_first_not_of(" \t") != none) {
        readEntry(line);
    }
}

bool LineReader::isComment(std::string_view line) {
    const std::string text = VXLOCAL::TRTools::trim(std::string(line), "", true);
    if (inComment_) {
        readCommented(line);
    }
    if (inComment_ || text.starts_with("/*")) {
        const std::size_t end = text.find("*/", inComment_ ? 0 : 2);
        inComment_ = end == std::string::npos;
        return inComment_ || end + 2 == text.size();
    }
    return text.starts_with("#") || text.starts_with("//");
}

void LineReader::readCommented(std::string_view line) {
    if (auto key = keyInProgram(line)) {
        strings_.commented.push_back({number_, std::move(*key)});
    }
}

std::string_view wordingOf(Rule rule) {
    switch (rule) {
    case Rule::Indentation:
        return "nothing may stand before the opening quote, not even a blank";
    case Rule::MissingQuote:
        return "key and text each stand between two double quotes";
    case Rule::TrailingText:
        return "the line must end with the closing quote, without a semicolon or a blank behind it";
    case Rule::Spacing:
        return "exactly one space must stand on each side of the equals sign";
    case Rule::RepeatedSeparator:
        return "the program drops a line that holds \" = \" with its quotes more than once";
    default:
        return "the program drops a line with an empty key or an empty text";
    }
}

void LineReader::readEntry(std::string_view line) {
    const auto entry = readEntryLine(line);
    if (!entry) {
        report_.add(number_, Rule::NotAnEntry,
                    "neither \"key\" = \"text\" nor a comment; the program drops the line");
        return;
    }
    for (const Rule rule : entry->broken) {
        report_.add(number_, rule, std::string(wordingOf(rule)));
    }
    if (!entry->key.empty()) {
        strings_.entries.push_back(
            {number_, std::string(entry->key), std::string(entry->value), entry->broken.empty()});
    }
}

} // namespace

Strings readStrings(std::string_view bytes, FileReport& report) {
    LineReader reader(report);
    const auto mark = std::ranges::find_if(
        marks, [bytes](const Mark& candidate) { return bytes.starts_with(candidate.bytes); });
    if (mark != marks.end()) {
        report.add(1, Rule::ByteOrderMark,
                   "the file begins with a byte-order mark of " + std::string(mark->encoding));
        if (mark->encoding == "UTF-16") {
            return {};
        }
        bytes.remove_prefix(mark->bytes.size());
    }
    while (!bytes.empty()) {
        const std::size_t length = std::min(bytes.find('\n'), bytes.size());
        reader.read(bytes.substr(0, length));
        bytes.remove_prefix(std::min(length + 1, bytes.size()));
    }
    Strings strings = reader.takeStrings();
    if (mark != marks.end() && !strings.entries.empty() && strings.entries.front().line == 1) {
        strings.entries.front().sound = false;
    }
    return strings;
}

} // namespace CheckStrings
