#include "Platform/AppKit/Conversions.h"

#include "AppKit/Pieces.h"

#include <gtest/gtest.h>

namespace AppKitTest {

using Vexora::Font;
using Vexora::StyledText;
using Vexora::toNSFont;
using Vexora::toNSString;
using Vexora::toUtf8;

class Text : public testing::Test {
protected:
    Vexora::AutoreleaseScope scope;
};

TEST_F(Text, keepsEveryCharacter) {
    for (const std::string& text :
         {std::string(), std::string("Größe ホーム بدء"), std::string("😀 𝄞"),
          std::string("a\0b", 3), std::string("\xEF\xBF\xBD"), std::string(100000, 'x')}) {
        const auto converted = toNSString(text);
        ASSERT_NE(converted.get(), nil);
        EXPECT_EQ([converted.get() lengthOfBytesUsingEncoding:NSUTF8StringEncoding], text.size());
    }
    EXPECT_EQ(toUtf8(toNSString("Größe ホーム بدء 😀")), "Größe ホーム بدء 😀");
    EXPECT_EQ([toNSString("😀").get() length], 2U);
    EXPECT_EQ([toNSString(std::string("a\0b", 3)).get() length], 3U);
}

TEST_F(Text, ofNothingIsEmpty) {
    EXPECT_EQ(toUtf8(nil), "");
    EXPECT_EQ(toUtf8(@""), "");
}

TEST_F(Text, replacesWhatIsNoUtf8) {
    EXPECT_EQ(toUtf8(toNSString("a\xff\xc3(b")), "a\uFFFD\uFFFD(b");
    EXPECT_EQ(toUtf8(toNSString("cut \xe3\x83")), "cut \uFFFD\uFFFD");
    EXPECT_EQ(toUtf8(toNSString("\x80Größe😀\xfe")), "\uFFFDGröße😀\uFFFD");
}

TEST(Colours, keepTheirComponents) {
    const Vexora::AutoreleaseScope scope;
    EXPECT_TRUE(
        areAlike(colorOf(Vexora::toNSColor({0.24, 0.44, 0.70, 0.5})), {0.24, 0.44, 0.70, 0.5}));
}

class Typefaces : public testing::Test {
protected:
    Vexora::AutoreleaseScope scope;
};

TEST_F(Typefaces, thatAreMissingBecomeTheSystemFontInSemibold) {
    NSFont* const font = toNSFont({"QuillaSans-SemiBold", 15.0});
    EXPECT_EQ(font, [NSFont boldSystemFontOfSize:15.0]);
    EXPECT_TRUE(isBold(font));
    EXPECT_EQ([font pointSize], 15.0);
}

TEST_F(Typefaces, thatAreMissingKeepTheUsualWeightWhenNoneIsAskedFor) {
    NSFont* const font = toNSFont({"QuillaSans", 18.0});
    EXPECT_EQ(font, [NSFont systemFontOfSize:18.0]);
    EXPECT_FALSE(isBold(font));
    EXPECT_EQ([font pointSize], 18.0);
}

TEST_F(Typefaces, thatTheSystemHasAreTaken) {
    NSString* const other = [[NSFont boldSystemFontOfSize:12.0] fontName];
    ASSERT_FALSE([other isEqualToString:[[NSFont systemFontOfSize:12.0] fontName]]);
    NSFont* const font = toNSFont({toUtf8(other), 21.0});
    EXPECT_EQ(toUtf8([font fontName]), toUtf8(other));
    EXPECT_EQ([font pointSize], 21.0);
}

class AttributedText : public testing::Test {
protected:
    std::vector<Piece> converted(const StyledText& text) const {
        return piecesOf(Vexora::toAttributedText(text, [NSFont systemFontOfSize:11.0],
                                                 Vexora::toNSColor(green)));
    }

    static constexpr Vexora::Color green{0.0, 1.0, 0.0, 1.0};
    static constexpr Vexora::Color red{1.0, 0.0, 0.0, 1.0};
    Vexora::AutoreleaseScope scope;
};

TEST_F(AttributedText, ofNothingIsEmpty) {
    EXPECT_TRUE(converted(StyledText()).empty());
}

TEST_F(AttributedText, withoutAttributesTakesThoseOfItsControl) {
    EXPECT_EQ(converted(StyledText("plain")),
              (std::vector<Piece>{{"plain", 11.0, false, green, NSTextAlignmentNatural}}));
}

TEST_F(AttributedText, keepsItsRunsApart) {
    StyledText text("Größe 😀 ");
    text.append({"ホーム", Font{"QuillaSans-SemiBold", 12.0}, {}});
    text.append({" 𝄞 ", {}, {}});
    text.append({"بدء", {}, red});
    text.append({"!", Font{"QuillaSans-SemiBold", 13.0}, red});
    EXPECT_EQ(converted(text),
              (std::vector<Piece>{{"Größe 😀 ", 11.0, false, green, NSTextAlignmentNatural},
                                  {"ホーム", 12.0, true, green, NSTextAlignmentNatural},
                                  {" 𝄞 ", 11.0, false, green, NSTextAlignmentNatural},
                                  {"بدء", 11.0, false, red, NSTextAlignmentNatural},
                                  {"!", 13.0, true, red, NSTextAlignmentNatural}}));
}

TEST_F(AttributedText, isCentredFromItsFirstToItsLastCharacter) {
    StyledText text("one ");
    text.append({"two", Font{"QuillaSans-SemiBold", 12.0}, {}});
    text.setAlignment(Vexora::TextAlignment::Center);
    EXPECT_EQ(converted(text),
              (std::vector<Piece>{{"one ", 11.0, false, green, NSTextAlignmentCenter},
                                  {"two", 12.0, true, green, NSTextAlignmentCenter}}));
}

} // namespace AppKitTest
