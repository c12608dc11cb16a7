#include "FileBytes.h"
#include "Platform/Posix/FileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace fs = std::filesystem;

namespace {

using CheckStrings::readBytes;

/// What the program makes of a licence file; nothing when it is no UTF-16 with a mark.
std::optional<std::string> shown(const fs::path& file) {
    return Vexora::PosixFileSystem().utf16TextOfFile(file.string());
}

const fs::path staged = VEXORA_STAGED_RESOURCES;
const fs::path source = VEXORA_RESOURCES_SOURCE;

} // namespace

class LicenseFiles : public testing::TestWithParam<std::string> {};

TEST_P(LicenseFiles, areTheSourceTextInUtf16WithAMark) {
    const std::string text = readBytes(source / "Licenses" / ("LA_" + GetParam() + ".txt"));
    EXPECT_EQ(shown(staged / ("LA_" + GetParam())), text);
}

TEST_P(LicenseFiles, areAWholeAgreementInElevenNumberedSections) {
    const std::string text = readBytes(source / "Licenses" / ("LA_" + GetParam() + ".txt"));
    for (int section = 1; section <= 11; ++section) {
        EXPECT_NE(text.find("\n\n" + std::to_string(section) + ". "), std::string::npos) << section;
    }
    EXPECT_NE(text.find("Ondrel Vexora Lumiq"), std::string::npos);
    EXPECT_FALSE(text.starts_with("\xEF\xBB\xBF"));
    EXPECT_TRUE(text.ends_with("\n") && !text.ends_with("\n\n"));
}

TEST_P(LicenseFiles, haveTheSamePlaceholdersAndParagraphsAsTheEnglishText) {
    const auto shape = [](const std::string& text) {
        std::size_t paragraphs = 0;
        std::size_t placeholders = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            paragraphs += text.compare(at, 2, "\n\n") == 0 ? 1U : 0U;
            placeholders += text[at] == '[' ? 1U : 0U;
        }
        return std::pair(paragraphs, placeholders);
    };
    EXPECT_EQ(shape(readBytes(source / "Licenses" / ("LA_" + GetParam() + ".txt"))),
              shape(readBytes(source / "Licenses/LA_en.txt")));
}

INSTANTIATE_TEST_SUITE_P(Languages, LicenseFiles, testing::Values(VEXORA_LICENSE_CODES),
                         [](const auto& parameter) { return parameter.param; });

TEST(LicenseFallback, everyTwoLetterCodeHasAText) {
    const std::set<std::string> codes = {VEXORA_ISO_CODES};
    EXPECT_EQ(codes.size(), 183U);
    for (const std::string& code : codes) {
        EXPECT_FALSE(shown(staged / ("LA_" + code)).value_or("").empty()) << code;
    }
}

TEST(LicenseFallback, languageWithoutATextOfItsOwnHasTheEnglishOne) {
    const std::set<std::string> own = {VEXORA_LICENSE_CODES};
    for (const std::string code : {VEXORA_ISO_CODES}) {
        const fs::path file = staged / ("LA_" + code);
        EXPECT_EQ(readBytes(file) == readBytes(staged / "LA_en"),
                  code == "en" || !own.contains(code))
            << code;
        EXPECT_EQ(fs::is_symlink(file), !own.contains(code)) << code;
        EXPECT_TRUE(own.contains(code) || fs::read_symlink(file) == "LA_en") << code;
    }
}

TEST(LicenseFallback, everyLanguageOfTheProgramHasATwoLetterCode) {
    const std::set<std::string> codes = {VEXORA_ISO_CODES};
    for (const std::string code : {VEXORA_LANGUAGE_CODES}) {
        EXPECT_TRUE(codes.contains(code)) << code;
    }
}
