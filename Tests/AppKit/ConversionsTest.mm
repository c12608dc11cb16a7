#include "Platform/AppKit/Conversions.h"

#include <gtest/gtest.h>

namespace AppKitTest {

using Vexora::Font;
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

class Typefaces : public testing::Test {
protected:
    Vexora::AutoreleaseScope scope;
};

TEST_F(Typefaces, thatAreMissingBecomeTheSystemFontInSemibold) {
    NSFont* const font = toNSFont({"QuillaSans-SemiBold", 15.0});
    EXPECT_EQ(font, [NSFont boldSystemFontOfSize:15.0]);
    EXPECT_NE([[NSFontManager sharedFontManager] traitsOfFont:font] & NSBoldFontMask, 0U);
    EXPECT_EQ([font pointSize], 15.0);
}

TEST_F(Typefaces, thatAreMissingKeepTheUsualWeightWhenNoneIsAskedFor) {
    NSFont* const font = toNSFont({"QuillaSans", 18.0});
    EXPECT_EQ(font, [NSFont systemFontOfSize:18.0]);
    EXPECT_EQ([font pointSize], 18.0);
}

TEST_F(Typefaces, thatTheSystemHasAreTaken) {
    NSString* const other = [[NSFont boldSystemFontOfSize:12.0] fontName];
    ASSERT_FALSE([other isEqualToString:[[NSFont systemFontOfSize:12.0] fontName]]);
    NSFont* const font = toNSFont({toUtf8(other), 21.0});
    EXPECT_EQ(toUtf8([font fontName]), toUtf8(other));
    EXPECT_EQ([font pointSize], 21.0);
}

} // namespace AppKitTest
