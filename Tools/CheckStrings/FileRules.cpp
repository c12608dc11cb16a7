#include "FileRules.h"

#include "FileBytes.h"
#include "ProgramReading.h"
#include "StringsFile.h"
#include "TextRules.h"

#include <map>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace CheckStrings {

namespace {

void checkKeys(const std::vector<Entry>& entries, const Keys& wanted, FileReport& report) {
    std::map<std::string_view, std::size_t> lines;
    for (const Entry& entry : entries) {
        const auto [first, isNew] = lines.emplace(entry.key, entry.line);
        if (!isNew) {
            report.add(entry.line, Rule::DuplicateKey,
                       "line " + std::to_string(first->second) + " has this key too: " + entry.key);
        } else if (!wanted.contains(entry.key)) {
            report.add(entry.line, Rule::UnknownKey, "not a key of the reference: " + entry.key);
        }
    }
    for (const std::string& key : wanted) {
        if (!lines.contains(key)) {
            report.add(0, Rule::MissingKey, key);
        }
    }
}

/// A commented entry under another key harms nobody, since nothing looks it up.
void checkComments(const std::vector<CommentedEntry>& commented, const Keys& wanted,
                   FileReport& report) {
    for (const CommentedEntry& entry : commented) {
        if (wanted.contains(entry.key)) {
            report.add(entry.line, Rule::Misread,
                       "the program reads this line although it stands in a comment");
        }
    }
}

} // namespace

Keys readKeys(const std::filesystem::path& reference) {
    Findings ignored;
    FileReport report(reference.string(), ignored);
    Keys keys;
    for (Entry& entry : readStrings(readBytes(reference), report).entries) {
        keys.insert(std::move(entry.key));
    }
    if (keys.empty()) {
        throw std::runtime_error("no entry in the reference " + reference.string());
    }
    return keys;
}

void checkStringsFile(const std::filesystem::path& file, const Keys& wanted, Findings& findings) {
    FileReport report(file.string(), findings);
    const Strings strings = readStrings(readBytes(file), report);
    checkKeys(strings.entries, wanted, report);
    checkComments(strings.commented, wanted, report);
    for (const Entry& entry : strings.entries) {
        if (!entry.value.empty()) {
            checkText(entry, report);
        }
    }
    compareWithProgram(file, strings.entries, report);
}

} // namespace CheckStrings
