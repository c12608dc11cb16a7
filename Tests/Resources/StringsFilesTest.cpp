#include "FileRules.h"

#include <kvparser.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace {

std::size_t count(std::string_view text, std::string_view part) {
    std::size_t result = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + part.size())) {
        ++result;
    }
    return result;
}

// The words between the tags <x> and </x>, or the empty text unless there is exactly one such pair
// in this order.
std::string marked(std::string_view text, char tag) {
    const std::string open = std::string("<") + tag + ">";
    const std::string close = std::string("</") + tag + ">";
    const std::size_t from = text.find(open);
    const std::size_t to = text.find(close);
    if (count(text, open) != 1 || count(text, close) != 1 || to < from) {
        return {};
    }
    return std::string(text.substr(from + open.size(), to - from - open.size()));
}

} // namespace

class StringsFiles : public testing::TestWithParam<std::string> {
protected:
    // Reads the texts as the program does.
    void SetUp() override {
        VXLOCAL::KVParser translations(file_.filename().c_str());
        translations.setLocaleDir(file_.parent_path().string());
        translations.parse();
        for (const std::string& key : CheckStrings::readKeys(file("en"))) {
            texts_.emplace(key, translations.getMessage(key));
        }
    }

    static std::filesystem::path file(const std::string& language) {
        return std::filesystem::path(VEXORA_STAGED_RESOURCES) / (language + ".lproj") /
               "Localizable.strings";
    }

    const std::filesystem::path file_ = file(GetParam());
    std::map<std::string, std::string, std::less<>> texts_;
};

TEST_P(StringsFiles, namesTheStartButtonAsItIsLabelled) {
    EXPECT_EQ(marked(texts_["To install Ondrel Vexora Lumiq, click <b>Start</b>."], 'b'),
              texts_["Start"]);
}

TEST_P(StringsFiles, keepsTheProductNameAndHasNoBracketsOutsideTheTags) {
    for (const std::string_view part : {"Ondrel Vexora Lumiq", "Ondrel Vexora", "<", ">"}) {
        for (const auto& [identifier, text] : texts_) {
            EXPECT_EQ(count(text, part), count(identifier, part)) << text;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, StringsFiles, testing::Values(VEXORA_LANGUAGE_CODES),
                         [](const auto& parameter) { return parameter.param; });
