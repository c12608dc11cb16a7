#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

namespace fs = std::filesystem;

namespace {

const fs::path source = VEXORA_RESOURCES_SOURCE;
const fs::path staged = VEXORA_STAGED_RESOURCES;
const std::set<std::string> languages = {VEXORA_LANGUAGE_CODES};
const std::set<std::string> licenses = {VEXORA_LICENSE_CODES};

/// What stands between prefix and suffix in the names that have both.
std::set<std::string> codesIn(const fs::path& folder, const std::string& prefix,
                              const std::string& suffix) {
    std::set<std::string> codes;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(prefix) && name.ends_with(suffix)) {
            codes.insert(name.substr(prefix.size(), name.size() - prefix.size() - suffix.size()));
        }
    }
    return codes;
}

} // namespace

TEST(LanguageList, namesEveryLanguageFolderAndNoOther) {
    EXPECT_EQ(codesIn(source, "", ".lproj"), languages);
}

TEST(LanguageList, namesEveryLicenseTextAndNoOther) {
    EXPECT_EQ(codesIn(source / "Licenses", "LA_", ".txt"), licenses);
}

TEST(LanguageList, isWhatIsStaged) {
    EXPECT_EQ(codesIn(staged, "", ".lproj"), languages);
}
