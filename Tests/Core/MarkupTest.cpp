#include "Core/Markup.h"

#include "Color.h"

#include <gtest/gtest.h>

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

TEST(Markup, instructionHasASemiboldWordWithoutColour) {
    EXPECT_EQ(rendered("To install Ondrel Vexora Lumiq, click <b>Start</b>."),
              (Runs{plain("To install Ondrel Vexora Lumiq, click "), marked("Start"), plain(".")}));
}

TEST(Markup, licenceNoticeHasSemiboldBlueWords) {
    const StyledText notice =
        renderMarkup("By installing, you agree to the Ondrel Vexora <a>license agreement</a>.",
                     "<a>", semibold12, Vexora::OndrelFontBlueColor);
    EXPECT_EQ(notice.runs(), (Runs{plain("By installing, you agree to the Ondrel Vexora "),
                                   {"license agreement", semibold12, Color{0.24, 0.44, 0.70, 1.0}},
                                   plain(".")}));
}

TEST(Markup, textWithoutTheSeparatorStaysWholeAndPlain) {
    EXPECT_EQ(rendered("Nothing to see"), Runs{plain("Nothing to see")});
    EXPECT_EQ(rendered("a closing </b> tag"), Runs{plain("a closing </b> tag")});
}

TEST(Markup, emptyTextGivesAnEmptyResult) {
    EXPECT_EQ(rendered(""), Runs{});
}

TEST(Markup, tagAtTheStartLeavesNoEmptyRun) {
    EXPECT_EQ(rendered("<b>Title</b> rest"), (Runs{marked("Title"), plain(" rest")}));
}

TEST(Markup, unclosedTagMarksTheTextToItsEnd) {
    EXPECT_EQ(rendered("a<b>b"), (Runs{plain("a"), marked("b")}));
}

TEST(Markup, unclosedTagEndsAtTheNextOneAndBothRunsStaySeparate) {
    EXPECT_EQ(rendered("a<b>b<b>c</b>d"), (Runs{plain("a"), marked("b"), marked("c"), plain("d")}));
}

TEST(Markup, emptySegmentBetweenTwoTagsIsSkipped) {
    EXPECT_EQ(rendered("a<b><b>c</b>"), (Runs{plain("a"), marked("c")}));
}

TEST(Markup, emptyPairOfTagsMarksNothing) {
    EXPECT_EQ(joined(rendered("x<b></b>y")), Runs{plain("xy")});
}

TEST(Markup, emptyPairOfTagsIsNotColouredEither) {
    const StyledText text =
        renderMarkup("x<a></a>y", "<a>", semibold12, Vexora::OndrelFontBlueColor);
    EXPECT_EQ(joined(text.runs()), Runs{plain("xy")});
}

TEST(Markup, closingTagBeforeTheFirstTagStaysVisible) {
    EXPECT_EQ(rendered("x</b>y<b>z</b>"), (Runs{plain("x</b>y"), marked("z")}));
}

TEST(Markup, furtherClosingTagsAreDropped) {
    EXPECT_EQ(joined(rendered("a<b>b</b>c</b>d")), (Runs{plain("a"), marked("b"), plain("cd")}));
}

TEST(Markup, tagsAreCaseSensitive) {
    EXPECT_EQ(rendered("<B>x</B>"), Runs{plain("<B>x</B>")});
    EXPECT_EQ(rendered("<b>x</B>"), Runs{marked("x</B>")});
}

TEST(Markup, closingTagOfAOneCharacterSeparatorIsTheCharacterAndASlash) {
    // It begins with the separator itself, which is found first: the mark opens once more.
    EXPECT_EQ(rendered("a*b*/c", "*"), (Runs{plain("a"), marked("b"), marked("/c")}));
    EXPECT_EQ(rendered("a*b", "*"), (Runs{plain("a"), marked("b")}));
    EXPECT_EQ(rendered("*/", "*"), Runs{marked("/")});
}

TEST(Markup, separatorAtTheVeryEndAddsNothing) {
    EXPECT_EQ(rendered("a<b>"), Runs{plain("a")});
    EXPECT_EQ(rendered("<b>"), Runs{});
}

TEST(Markup, otherTagsAreCharacters) {
    EXPECT_EQ(rendered("<a>x</a> <b>y</b>"), (Runs{plain("<a>x</a> "), marked("y")}));
    EXPECT_EQ(rendered("<b>x</a>y</b>"), Runs{marked("x</a>y")});
}

TEST(Markup, overlappingSeparatorsAreFoundFromTheLeft) {
    EXPECT_EQ(rendered("a**b", "**"), (Runs{plain("a"), marked("b")}));
    EXPECT_EQ(rendered("a***b", "**"), (Runs{plain("a"), marked("*b")}));
}

TEST(Markup, textOutsideAsciiIsMarkedByItsBytes) {
    EXPECT_EQ(rendered("Größe <b>漢字</b>、"),
              (Runs{plain("Größe "), marked("漢字"), plain("、")}));
}

TEST(Markup, alignmentIsLeftToTheCaller) {
    EXPECT_EQ(renderMarkup("a<b>b</b>", "<b>", semibold18, std::nullopt).alignment(),
              TextAlignment::Natural);
}

TEST(Markup, blueIsTheFixedOpaqueColour) {
    EXPECT_EQ(Vexora::OndrelFontBlueColor, (Color{0.24, 0.44, 0.70, 1.0}));
}

TEST(Markup, removingKeepsATagWithADigit) {
    EXPECT_EQ(removeTags("<b>Start</b> now <x1>"), "Start now <x1>");
}

TEST(Markup, removingTakesLettersOfBothCasesSlashesAndEmptyBrackets) {
    EXPECT_EQ(removeTags("<a>1</a><B>2</B><>3</><aZ/zA>4<///>"), "1234");
}

TEST(Markup, removingKeepsTagsWithBlanksAttributesAndOtherLetters) {
    EXPECT_EQ(removeTags("<a b> <a=\"c\"> <ä> <-> <a\n>"), "<a b> <a=\"c\"> <ä> <-> <a\n>");
}

TEST(Markup, removingKeepsBracketsThatDoNotPair) {
    EXPECT_EQ(removeTags("1 < 2 > 3 <b"), "1 < 2 > 3 <b");
    EXPECT_EQ(removeTags("<"), "<");
    EXPECT_EQ(removeTags(">"), ">");
    EXPECT_EQ(removeTags("<<b>>"), "<>");
    EXPECT_EQ(removeTags("<a<b>c"), "<ac");
}

TEST(Markup, removingOnceIsNotRepeatedOnTheResult) {
    EXPECT_EQ(removeTags("<<b>b>x"), "<b>x");
}

TEST(Markup, removingFromTheEmptyTextGivesTheEmptyText) {
    EXPECT_EQ(removeTags(""), "");
}

} // namespace
