#include "TextRules.h"

#include "Characters.h"
#include "Format.h"
#include "Tags.h"

#include <tr.h>
#include <trtools.h>

#include <string>
#include <string_view>

namespace CheckStrings {

namespace {

/// The bytes at which the translator cuts, as it shows when it is given more.
std::size_t longestResult() {
    static const std::size_t length =
        VXLOCAL::Translator::getInstance()->tr("%s", std::string(10'000, 'x').c_str()).size();
    return length;
}

void checkEscapes(const Entry& entry, FileReport& report) {
    constexpr std::string_view kept = "abfnrt\\";
    const std::string_view text = entry.value;
    for (std::size_t at = text.find('\\'); at != std::string_view::npos;
         at = text.find('\\', at + 2)) {
        const std::string_view letter = text.substr(at + 1, 1);
        if (letter.empty() || kept.find(letter) == std::string_view::npos) {
            report.add(entry.line, Rule::LostEscape,
                       "after a backslash the program knows only a, b, f, n, r, t and a backslash");
            return;
        }
    }
}

std::string listed(const Format& format) {
    std::string list;
    for (const std::string& conversion : format.conversions) {
        list += (list.empty() ? "%" : ", %") + conversion;
    }
    return list.empty() ? "none" : list;
}

void checkFormat(const std::string& key, const std::string& text, std::size_t line,
                 FileReport& report) {
    const Format wanted = readFormat(key);
    const Format format = readFormat(text);
    if (format.conversions != wanted.conversions) {
        const bool isLonger = format.conversions.size() > wanted.conversions.size();
        report.add(line, Rule::Conversions,
                   "conversions of the key: " + listed(wanted) + "; of the text: " +
                       listed(format) + (isLonger ? "; write %% for a percent sign" : ""));
    }
    if (format.hasSinglePercent) {
        report.add(line, Rule::SinglePercent, "a percent sign is written doubled");
    }
    if (format.literalBytes > longestResult()) {
        report.add(line, Rule::LongResult,
                   "the text has " + std::to_string(format.literalBytes) +
                       " bytes; the program cuts it after " + std::to_string(longestResult()));
    }
}

} // namespace

void checkText(const Entry& entry, FileReport& report) {
    const std::string text = VXLOCAL::TRTools::unescape(entry.value);
    if (isBlank(text)) {
        report.add(entry.line, Rule::EmptyText,
                   "the text has nothing but blanks and invisible format characters");
        return;
    }
    checkEscapes(entry, report);
    checkFormat(entry.key, text, entry.line, report);
    checkTags(entry.key, text, entry.line, report);
    if (const auto points = decodeUtf8(text); points && !hasBalancedBidiControls(*points)) {
        report.add(entry.line, Rule::UnbalancedBidi,
                   "LRE, RLE, LRO and RLO each need a PDF, LRI, RLI and FSI a PDI");
    }
}

} // namespace CheckStrings
