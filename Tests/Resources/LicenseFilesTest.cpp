#include "FileBytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

namespace fs = std::filesystem;

namespace {

void appendUtf8(std::string& text, std::uint32_t point) {
    if (point < 0x80) {
        text += static_cast<char>(point);
        return;
    }
    const int tail = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    const std::uint32_t lead = tail == 1 ? 0xC0 : tail == 2 ? 0xE0 : 0xF0;
    text += static_cast<char>(lead | point >> (6 * tail));
    for (int shift = 6 * (tail - 1); shift >= 0; shift -= 6)
        text += static_cast<char>(0x80U | (point >> shift & 0x3FU));
}

// Decodes UTF-16 whose byte order its mark tells.
std::string decodeUtf16(const std::string& bytes) {
    const std::uint32_t mark = byteAt(bytes, 0) << 8 | byteAt(bytes, 1);
    if (mark != 0xFEFF && mark != 0xFFFE)
        throw std::runtime_error("no byte-order mark");
    const auto unit = [&bytes, big = mark == 0xFEFF](std::size_t index) {
        return byteAt(bytes, index + (big ? 0 : 1)) << 8 | byteAt(bytes, index + (big ? 1 : 0));
    };
    std::string text;
    for (std::size_t index = 2; index < bytes.size(); index += 2) {
        std::uint32_t point = unit(index);
        if (point >= 0xD800 && point < 0xDC00) {
            index += 2;
            point = 0x10000 + ((point - 0xD800) << 10) + (unit(index) - 0xDC00);
        }
        appendUtf8(text, point);
    }
    return text;
}

const fs::path staged = VEXORA_STAGED_RESOURCES;
const fs::path source = VEXORA_RESOURCES_SOURCE;

} // namespace

class LicenseFilesTest : public testing::TestWithParam<std::string> {};

TEST_P(LicenseFilesTest, areTheSourceTextInUtf16WithAMark) {
    const std::string text = readFile(source / "Licenses" / ("LA_" + GetParam() + ".txt"));
    EXPECT_EQ(decodeUtf16(readFile(staged / ("LA_" + GetParam()))), text);
}

TEST_P(LicenseFilesTest, areAWholeAgreementInElevenNumberedSections) {
    const std::string text = readFile(source / "Licenses" / ("LA_" + GetParam() + ".txt"));
    for (int section = 1; section <= 11; ++section)
        EXPECT_NE(text.find("\n\n" + std::to_string(section) + ". "), std::string::npos) << section;
    EXPECT_NE(text.find("Ondrel Vexora Lumiq"), std::string::npos);
    EXPECT_FALSE(text.starts_with("\xEF\xBB\xBF"));
    EXPECT_TRUE(text.ends_with("\n") && !text.ends_with("\n\n"));
}

TEST_P(LicenseFilesTest, haveTheSamePlaceholdersAndParagraphsAsTheEnglishText) {
    const auto shape = [](const std::string& text) {
        std::size_t paragraphs = 0;
        std::size_t placeholders = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            paragraphs += text.compare(at, 2, "\n\n") == 0 ? 1U : 0U;
            placeholders += text[at] == '[' ? 1U : 0U;
        }
        return std::pair(paragraphs, placeholders);
    };
    EXPECT_EQ(shape(readFile(source / "Licenses" / ("LA_" + GetParam() + ".txt"))),
              shape(readFile(source / "Licenses/LA_en.txt")));
}

INSTANTIATE_TEST_SUITE_P(Languages, LicenseFilesTest, testing::Values(VEXORA_LICENSE_CODES),
                         [](const auto& parameter) { return parameter.param; });

TEST(LicenseFallbackTest, everyTwoLetterCodeHasAText) {
    const std::set<std::string> codes = {VEXORA_ISO_CODES};
    EXPECT_EQ(codes.size(), 183U);
    for (const std::string& code : codes)
        EXPECT_FALSE(decodeUtf16(readFile(staged / ("LA_" + code))).empty()) << code;
}

TEST(LicenseFallbackTest, languageWithoutATextOfItsOwnHasTheEnglishOne) {
    const std::set<std::string> own = {VEXORA_LICENSE_CODES};
    for (const std::string code : {VEXORA_ISO_CODES}) {
        const fs::path file = staged / ("LA_" + code);
        EXPECT_EQ(readFile(file) == readFile(staged / "LA_en"), code == "en" || !own.contains(code))
            << code;
        EXPECT_EQ(fs::is_symlink(file), !own.contains(code)) << code;
        EXPECT_TRUE(own.contains(code) || fs::read_symlink(file) == "LA_en") << code;
    }
}

TEST(LicenseFallbackTest, everyLanguageOfTheProgramHasATwoLetterCode) {
    const std::set<std::string> codes = {VEXORA_ISO_CODES};
    for (const std::string code : {VEXORA_LANGUAGE_CODES})
        EXPECT_TRUE(codes.contains(code)) << code;
}
