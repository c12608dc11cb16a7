#include "Core/Markup.h"

#include "Color.h"

#include <gtest/gtest.h>

#include <cctype>
#include <optional>
#include <string>
#include <vector>

using Vexora::Color;
using Vexora::Font;
using Vexora::removeTags;
using Vexora::renderMarkup;
using Vexora::StyledText;
using Vexora::TextAlignment;
using Vexora::TextRun;

namespace {

using Runs = std::vector<TextRun>;

const Font semibold18{"QuillaSans-SemiBold", 18.0};
const Font semibold12{"QuillaSans-SemiBold", 12.0};

TextRun plain(const std::string& text) {
    return {text, {}, {}};
}

TextRun marked(const std::string& text) {
    return {text, semibold18, {}};
}

Runs rendered(const std::string& text, const std::string& separator = "<b>") {
    return renderMarkup(text, separator, semibold18, std::nullopt).runs();
}

/// The runs with neighbours of one style joined, as a reader sees them.
Runs joined(const Runs& runs) {
    Runs result;
    for (const TextRun& run : runs) {
        if (!result.empty() && result.back().font == run.font && result.back().color == run.color) {
            result.back().text += run.text;
        } else {
            result.push_back(run);
        }
    }
    return result;
}

TEST(Markup, textsAreCutIntoPlainAndMarkedRuns) {
    const std::pair<std::string, Runs> texts[] = {
        {"To install Ondrel Vexora Lumiq, click <b>Start</b>.",
         {plain("To install Ondrel Vexora Lumiq, click "), marked("Start"), plain(".")}},
        {"Größe <b>漢字</b>、", {plain("Größe "), marked("漢字"), plain("、")}},
        // Without the tag the text stays whole.
        {"", {}},
        {"Nothing to see", {plain("Nothing to see")}},
        {"a closing </b> tag", {plain("a closing </b> tag")}},
        // Pieces without text leave no run.
        {"<b>Title</b> rest", {marked("Title"), plain(" rest")}},
        {"a<b><b>c</b>", {plain("a"), marked("c")}},
        {"a<b>", {plain("a")}},
        {"<b>", {}},
        // A tag that is not closed ends at the next one, or with the text.
        {"a<b>b", {plain("a"), marked("b")}},
        {"a<b>b<b>c</b>d", {plain("a"), marked("b"), marked("c"), plain("d")}},
        // A closing tag before the first tag stays visible.
        {"x</b>y<b>z</b>", {plain("x</b>y"), marked("z")}},
        // Other tags, and those of the other letter case, are characters.
        {"<B>x</B>", {plain("<B>x</B>")}},
        {"<b>x</B>", {marked("x</B>")}},
        {"<a>x</a> <b>y</b>", {plain("<a>x</a> "), marked("y")}},
        {"<b>x</a>y</b>", {marked("x</a>y")}}};
    for (const auto& [text, runs] : texts) {
        EXPECT_EQ(rendered(text), runs) << text;
    }
    // Overlapping separators are found from the left.
    EXPECT_EQ(rendered("a**b", "**"), (Runs{plain("a"), marked("b")}));
    EXPECT_EQ(rendered("a***b", "**"), (Runs{plain("a"), marked("*b")}));
}

TEST(Markup, licenceNoticeHasSemiboldBlueWords) {
    const StyledText notice =
        renderMarkup("By installing, you agree to the Ondrel Vexora <a>license agreement</a>.",
                     "<a>", semibold12, Vexora::OndrelFontBlueColor);
    EXPECT_EQ(notice.runs(), (Runs{plain("By installing, you agree to the Ondrel Vexora "),
                                   {"license agreement", semibold12, Color{0.24, 0.44, 0.70, 1.0}},
                                   plain(".")}));
    EXPECT_EQ(notice.alignment(), TextAlignment::Natural);
}

TEST(Markup, emptyPairOfTagsMarksNothing) {
    EXPECT_EQ(joined(rendered("x<b></b>y")), Runs{plain("xy")});
    const StyledText coloured =
        renderMarkup("x<a></a>y", "<a>", semibold12, Vexora::OndrelFontBlueColor);
    EXPECT_EQ(joined(coloured.runs()), Runs{plain("xy")});
}

TEST(Markup, furtherClosingTagsAreDropped) {
    EXPECT_EQ(joined(rendered("a<b>b</b>c</b>d")), (Runs{plain("a"), marked("b"), plain("cd")}));
}

TEST(Markup, closingTagOfAOneCharacterSeparatorIsTheCharacterAndASlash) {
    // It begins with the separator itself, which is found first: the mark opens once more.
    EXPECT_EQ(rendered("a*b*/c", "*"), (Runs{plain("a"), marked("b"), marked("/c")}));
    EXPECT_EQ(rendered("a*b", "*"), (Runs{plain("a"), marked("b")}));
    EXPECT_EQ(rendered("*/", "*"), Runs{marked("/")});
}

TEST(Markup, closingTagHasTheSlashBehindTheFirstCharacterAndNotTheFirstByte) {
    EXPECT_EQ(rendered("a«b»c«/b»d", "«b»"), (Runs{plain("a"), marked("c"), plain("d")}));
    EXPECT_EQ(rendered("a【c【/d", "【"), (Runs{plain("a"), marked("c"), marked("/d")}));
    EXPECT_EQ(rendered("a😀xc😀/xd", "😀x"), (Runs{plain("a"), marked("c"), plain("d")}));
}

TEST(Markup, blueIsTheFixedOpaqueColour) {
    EXPECT_EQ(Vexora::OndrelFontBlueColor, (Color{0.24, 0.44, 0.70, 1.0}));
}

TEST(Markup, removingTakesNoOtherByteForATag) {
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        const std::string text{'<', byte, '>'};
        const bool tag = byte == '/' || (value < 128 && std::isalpha(value) != 0);
        if (byte != '<' && byte != '>') {
            EXPECT_EQ(removeTags(text), tag ? "" : text) << value;
        }
    }
}

TEST(Markup, removingTakesLettersAndSlashesBetweenAngleBrackets) {
    const std::pair<std::string, std::string> texts[] = {
        {"", ""},
        {"<a>1</a><B>2</B><>3</><aZ/zA>4<///>", "1234"},
        // A digit, a blank, an attribute or another letter makes it no tag.
        {"<b>Start</b> now <x1>", "Start now <x1>"},
        {"<a b> <a=\"c\"> <ä> <-> <a\n>", "<a b> <a=\"c\"> <ä> <-> <a\n>"},
        // Brackets that do not pair stay.
        {"1 < 2 > 3 <b", "1 < 2 > 3 <b"},
        {"<", "<"},
        {">", ">"},
        {"<<b>>", "<>"},
        {"<a<b>c", "<ac"},
        // What removing leaves is not looked at again.
        {"<<b>b>x", "<b>x"}};
    for (const auto& [text, left] : texts) {
        EXPECT_EQ(removeTags(text), left) << text;
    }
}

} // namespace
