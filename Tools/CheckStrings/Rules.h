// The rules that strings files and licence texts are held to, each with its short name.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace CheckStrings {

enum class Rule {
    NotAnEntry,
    Indentation,
    MissingQuote,
    TrailingText,
    Spacing,
    RepeatedSeparator,
    ByteOrderMark,
    InvalidUtf8,
    EmptyText,
    DuplicateKey,
    MissingKey,
    UnknownKey,
    Misread,
    LostEscape,
    Conversions,
    SinglePercent,
    UnbalancedTags,
    NestedTags,
    EmptyTags,
    ForeignTags,
    RepeatedTags,
    MissingTags,
    LongResult,
    UnbalancedBidi,
    LanguageFolder,
    MissingLicense,
    LicenseEncoding,
    UnreadableFile,
};

struct RuleText {
    Rule rule;
    /// In lower case, words joined by hyphens.
    std::string_view name;
    /// What is found, for the list of rules.
    std::string_view meaning;
};

/// All rules in the order of their enumerators.
inline constexpr auto allRules = std::to_array<RuleText>({
    {Rule::NotAnEntry, "not-an-entry", "neither an entry nor a comment nor blank, so dropped"},
    {Rule::Indentation, "indentation", "something stands before the opening quote"},
    {Rule::MissingQuote, "missing-quote", "the opening or the closing quote is missing"},
    {Rule::TrailingText, "trailing-text", "something follows the closing quote, say a semicolon"},
    {Rule::Spacing, "spacing", "other than one space on each side of the equals sign"},
    {Rule::RepeatedSeparator, "repeated-separator", "the separator stands there twice or more"},
    {Rule::ByteOrderMark, "byte-order-mark", "the file begins with a byte-order mark"},
    {Rule::InvalidUtf8, "invalid-utf-8", "the line is not valid UTF-8"},
    {Rule::EmptyText, "empty-text", "the key is empty, or the text shows nothing"},
    {Rule::DuplicateKey, "duplicate-key", "an earlier line has the same key"},
    {Rule::MissingKey, "missing-key", "the file lacks a key of the reference (line 0)"},
    {Rule::UnknownKey, "unknown-key", "the reference lacks this key"},
    {Rule::Misread, "misread", "the program reads something other than what is written"},
    {Rule::LostEscape, "lost-escape", "a backslash before a byte other than a b f n r t \\"},
    {Rule::Conversions, "conversions", "other printf conversions than the key's, or reordered"},
    {Rule::SinglePercent, "single-percent", "a percent sign that is neither %% nor a conversion"},
    {Rule::UnbalancedTags, "unbalanced-tags", "an opening or a closing tag without its partner"},
    {Rule::NestedTags, "nested-tags", "a tag opens inside another"},
    {Rule::EmptyTags, "empty-tags", "nothing stands between an opening tag and its partner"},
    {Rule::ForeignTags, "foreign-tags", "a tag that the key does not have, or what looks like one"},
    {Rule::RepeatedTags, "repeated-tags", "a tag stands more often than in the key"},
    {Rule::MissingTags, "missing-tags", "a tag stands less often than in the key, or not at all"},
    {Rule::LongResult, "long-result", "the text is so long that the program cuts it"},
    {Rule::UnbalancedBidi, "unbalanced-bidi", "an invisible direction control without partner"},
    {Rule::LanguageFolder, "language-folder", "no folder named by two lower-case letters (line 0)"},
    {Rule::MissingLicense, "missing-license", "the language has no licence file (line 0)"},
    {Rule::LicenseEncoding, "license-encoding", "not sound UTF-16 with a mark, or empty (line 0)"},
    {Rule::UnreadableFile, "unreadable-file", "missing, no regular file, or unreadable (line 0)"},
});

constexpr bool followsTheEnumerators(std::size_t index) {
    return index == allRules.size() ||
           (allRules[index].rule == static_cast<Rule>(index) && followsTheEnumerators(index + 1));
}
static_assert(followsTheEnumerators(0));
static_assert(allRules.back().rule == Rule::UnreadableFile);

constexpr std::string_view nameOf(Rule rule) {
    return allRules[static_cast<std::size_t>(rule)].name;
}

} // namespace CheckStrings
