#include "Platform/StyledText.h"

#include <gtest/gtest.h>

#include <vector>

using Vexora::Color;
using Vexora::Font;
using Vexora::TextAlignment;
using Vexora::TextRun;

namespace {

using Runs = std::vector<TextRun>;

const TextRun styled{"styled", Font{"QuillaSans", 18.0}, Color{0.1, 0.2, 0.3, 1.0}};

TEST(StyledText, plainTextIsOneRunWithoutAttributes) {
    const Vexora::StyledText text("plain");
    EXPECT_EQ(text.runs(), (Runs{{"plain", {}, {}}}));
    EXPECT_EQ(text.alignment(), TextAlignment::Natural);
}

TEST(StyledText, runWithoutTextLeavesNoTrace) {
    Vexora::StyledText text("");
    text.append({"", Font{"QuillaSans", 18.0}, {}});
    EXPECT_EQ(text, Vexora::StyledText());
    EXPECT_EQ(text.string(), "");
}

TEST(StyledText, runsKeepTheirOrderAndTheirStyles) {
    Vexora::StyledText text("plain ");
    text.append(styled);
    EXPECT_EQ(text.runs(), (Runs{{"plain ", {}, {}}, styled}));
    EXPECT_EQ(text.string(), "plain styled");
}

TEST(StyledText, wordsBesideLinksEndWithoutBlanks) {
    const TextRun bold{" two", Font{"QuillaSans", 18.0}, {}};
    Vexora::StyledText text(" one");
    text.append(bold);
    text.append({"  ", {}, {}});
    EXPECT_EQ(text.wordsBesideLinks(), " one two");
    text.append(styled);
    EXPECT_EQ(text.wordsBesideLinks(), " one two");
    text.append(bold);
    EXPECT_EQ(text.wordsBesideLinks(), " one two   two");
    EXPECT_EQ(Vexora::StyledText(" ").wordsBesideLinks(), "");
}

TEST(StyledText, appendedTextBringsItsRunsButNotItsAlignment) {
    Vexora::StyledText other;
    other.append(styled);
    other.setAlignment(TextAlignment::Center);
    Vexora::StyledText text("plain ");
    text.append(other);
    EXPECT_EQ(text.runs(), (Runs{{"plain ", {}, {}}, styled}));
    EXPECT_EQ(text.alignment(), TextAlignment::Natural);
    other.append(text);
    EXPECT_EQ(other.alignment(), TextAlignment::Center);
}

TEST(StyledText, textsDifferByCharactersStyleOrAlignment) {
    Vexora::StyledText centred("a");
    centred.setAlignment(TextAlignment::Center);
    Vexora::StyledText large;
    large.append({"a", Font{"QuillaSans", 18.0}, {}});
    EXPECT_EQ(Vexora::StyledText("a"), Vexora::StyledText("a"));
    EXPECT_NE(Vexora::StyledText("a"), Vexora::StyledText("b"));
    EXPECT_NE(Vexora::StyledText("a"), centred);
    EXPECT_NE(Vexora::StyledText("a"), large);
}

} // namespace
