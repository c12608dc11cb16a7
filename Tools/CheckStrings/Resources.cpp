#include "Resources.h"

#include "FileBytes.h"
#include "LicenseText.h"

#include <algorithm>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace CheckStrings {

namespace {

constexpr const char* stringsFileName = "Localizable.strings";
constexpr const char* licensePrefix = "LA_";

struct Contents {
    /// Codes, from the names of the language folders.
    std::set<std::string> languages;
    /// Names of what ends like a language folder but is none.
    std::set<std::string> strangers;
    /// Names of the licence files.
    std::set<std::string> licenses;
};

bool isCode(std::string_view name) {
    return name.size() == 2 &&
           std::ranges::all_of(name, [](char letter) { return letter >= 'a' && letter <= 'z'; });
}

Contents contentsOf(const fs::path& resources) {
    Contents contents;
    for (const fs::directory_entry& entry : fs::directory_iterator(resources)) {
        const fs::path name = entry.path().filename();
        std::error_code ignored;
        if (name.extension() == ".lproj") {
            const std::string code = name.stem().string();
            const bool isLanguage = isCode(code) && entry.is_directory(ignored);
            (isLanguage ? contents.languages : contents.strangers)
                .insert(isLanguage ? code : name.string());
        } else if (name.string().starts_with(licensePrefix)) {
            contents.licenses.insert(name.string());
        }
    }
    return contents;
}

/// Runs a check of one file, and reports when that file cannot be read.
void checkFile(const fs::path& file, Findings& findings, const std::function<void()>& check) {
    try {
        check();
    } catch (const UnreadableFile& error) {
        FileReport(file.string(), findings).add(0, Rule::UnreadableFile, error.what());
    }
}

void checkLicense(const fs::path& file, Findings& findings) {
    if (const auto text = wrongEncoding(readBytes(file))) {
        FileReport(file.string(), findings).add(0, Rule::LicenseEncoding, *text);
    }
}

} // namespace

fs::path defaultReference(const fs::path& resources) {
    return resources / "en.lproj" / stringsFileName;
}

void checkResources(const fs::path& resources, const Keys& wanted, Findings& findings) {
    const Contents contents = contentsOf(resources);
    if (contents.languages.empty()) {
        throw std::runtime_error("no language folder in " + resources.string());
    }
    for (const std::string& stranger : contents.strangers) {
        FileReport((resources / stranger).string(), findings)
            .add(0, Rule::LanguageFolder,
                 "the program opens only folders, each named by two lower-case letters");
    }
    for (const std::string& language : contents.languages) {
        const fs::path file = resources / (language + ".lproj") / stringsFileName;
        checkFile(file, findings, [&] { checkStringsFile(file, wanted, findings); });
        const std::string license = licensePrefix + language;
        if (!contents.licenses.contains(license)) {
            FileReport((resources / license).string(), findings)
                .add(0, Rule::MissingLicense, "the language has no licence file");
        }
    }
    for (const std::string& license : contents.licenses) {
        const fs::path file = resources / license;
        checkFile(file, findings, [&] { checkLicense(file, findings); });
    }
}

} // namespace CheckStrings
