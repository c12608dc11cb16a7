#include "Support/MessageIdentifiers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using TestSupport::messageIdentifiers;

std::size_t count(std::string_view text, std::string_view part) {
    std::size_t result = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + part.size()))
        ++result;
    return result;
}

// The words between the tags <x> and </x>, or the empty text unless there is exactly one such pair
// in this order.
std::string marked(std::string_view text, char tag) {
    const std::string open = std::string("<") + tag + ">";
    const std::string close = std::string("</") + tag + ">";
    const std::size_t from = text.find(open);
    const std::size_t to = text.find(close);
    if (count(text, open) != 1 || count(text, close) != 1 || to < from)
        return {};
    return std::string(text.substr(from + open.size(), to - from - open.size()));
}

} // namespace

class StringsFilesTest : public testing::TestWithParam<std::string> {
protected:
    // Every line must be exactly "key" = "value", with nothing before, between or behind.
    void SetUp() override {
        std::ifstream stream(std::filesystem::path(VEXORA_STAGED_RESOURCES) /
                                 (GetParam() + ".lproj") / "Localizable.strings",
                             std::ios::binary);
        ASSERT_TRUE(stream.is_open());
        const std::string separator = "\" = \"";
        for (std::string line; std::getline(stream, line);) {
            const std::size_t middle = line.find(separator);
            ASSERT_EQ(count(line, separator), 1U) << line;
            ASSERT_TRUE(line.starts_with('"') && line.ends_with('"')) << line;
            const std::size_t value = middle + separator.size();
            ASSERT_GT(middle, 1U) << line;
            ASSERT_GT(line.size(), value + 1) << line;
            const bool isNew = texts_
                                   .emplace(line.substr(1, middle - 1),
                                            line.substr(value, line.size() - value - 1))
                                   .second;
            EXPECT_TRUE(isNew) << line;
        }
    }

    std::map<std::string, std::string, std::less<>> texts_;
};

TEST_P(StringsFilesTest, holdsEveryIdentifierAndNoOther) {
    for (const std::string_view identifier : messageIdentifiers)
        EXPECT_TRUE(texts_.contains(identifier)) << identifier;
    EXPECT_EQ(texts_.size(), messageIdentifiers.size());
}

TEST_P(StringsFilesTest, keepsTheTagPairOfTheIdentifier) {
    for (const auto& [identifier, text] : texts_) {
        std::size_t brackets = 0;
        for (const char tag : {'a', 'b'}) {
            EXPECT_EQ(marked(text, tag).empty(), marked(identifier, tag).empty()) << text;
            brackets += marked(identifier, tag).empty() ? 0U : 2U;
        }
        EXPECT_EQ(count(text, "<"), brackets) << text;
        EXPECT_EQ(count(text, ">"), brackets) << text;
    }
}

TEST_P(StringsFilesTest, namesTheStartButtonAsItIsLabelled) {
    EXPECT_EQ(marked(texts_["To install Ondrel Vexora Lumiq, click <b>Start</b>."], 'b'),
              texts_["Start"]);
}

TEST_P(StringsFilesTest, keepsTheProductName) {
    for (const std::string_view name : {"Ondrel Vexora Lumiq", "Ondrel Vexora"})
        for (const auto& [identifier, text] : texts_)
            EXPECT_EQ(count(text, name), count(identifier, name)) << text;
}

TEST_P(StringsFilesTest, holdsNoConversionsAndFitsTheTranslatorsBuffer) {
    for (const auto& [identifier, text] : texts_) {
        EXPECT_EQ(text.find('%'), std::string::npos) << text;
        EXPECT_EQ(text.find('\\'), std::string::npos) << text;
        EXPECT_LE(text.size(), 998U) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, StringsFilesTest, testing::Values(VEXORA_LANGUAGE_CODES),
                         [](const auto& parameter) { return parameter.param; });
