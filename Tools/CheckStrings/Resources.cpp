#include "Resources.h"

#include "FileBytes.h"
#include "LicenseText.h"

#include <stdexcept>
#include <string>

namespace fs = std::filesystem;

namespace CheckStrings {

namespace {

constexpr const char* stringsFileName = "Localizable.strings";
constexpr const char* licensePrefix = "LA_";

struct Contents {
    /// Codes, from the names of the language folders.
    std::set<std::string> languages;
    /// Names of the licence files.
    std::set<std::string> licenses;
};

Contents contentsOf(const fs::path& resources) {
    Contents contents;
    for (const fs::directory_entry& entry : fs::directory_iterator(resources)) {
        const fs::path name = entry.path().filename();
        if (name.extension() == ".lproj" && entry.is_directory()) {
            contents.languages.insert(name.stem().string());
        } else if (name.string().starts_with(licensePrefix)) {
            contents.licenses.insert(name.string());
        }
    }
    return contents;
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
    for (const std::string& language : contents.languages) {
        checkCatalogue(resources / (language + ".lproj") / stringsFileName, wanted, findings);
        const std::string license = licensePrefix + language;
        if (!contents.licenses.contains(license)) {
            FileReport((resources / license).string(), findings)
                .add(0, Rule::MissingLicense, "the language has no licence file");
        }
    }
    for (const std::string& license : contents.licenses) {
        const fs::path file = resources / license;
        if (const auto fault = licenseFault(readBytes(file))) {
            FileReport(file.string(), findings).add(0, Rule::LicenseEncoding, *fault);
        }
    }
}

} // namespace CheckStrings
