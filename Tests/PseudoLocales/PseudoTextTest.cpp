#include "PseudoText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace GalleryTest {

using Gallery::accented;
using Gallery::characterCount;
using Gallery::conversions;
using Gallery::rightToLeft;
using Gallery::withoutTags;

TEST(PseudoText, accentsEveryLetterBetweenBrackets) {
    EXPECT_EQ(accented("Close"), "[Çļöšé]");
    EXPECT_EQ(accented("Open logs"), "[Öþéñ ļöĝš ö]");
}

TEST(PseudoText, isAtLeastTwoFifthsLonger) {
    for (const std::string text : {"Start", "Open logs", "Installation failed",
                                   "Ondrel Vexora Lumiq is already up to date."}) {
        const std::size_t length = characterCount(text);
        const std::size_t wanted = (14 * length + 9) / 10;
        EXPECT_EQ(characterCount(accented(text)), wanted) << text;
        EXPECT_EQ(characterCount(rightToLeft(text)), wanted) << text;
    }
    const std::string tagged = "click <b>Start</b>.";
    EXPECT_EQ(characterCount(withoutTags(accented(tagged))), 17U);
}

TEST(PseudoText, padsWithWordsThatCanBeWrapped) {
    EXPECT_EQ(accented("Pre-installation steps failed."),
              "[Þŕé-îñšţåļļåţîöñ šţéþš ƒåîļéð. öñé ţŵö ţ]");
}

TEST(PseudoText, keepsTags) {
    EXPECT_EQ(accented("the <a>license agreement</a>."), "[ţĥé <a>ļîçéñšé åĝŕééṁéñţ</a>. öñé ţŵ]");
    EXPECT_EQ(rightToLeft("<b>b</b>"), "[<b>ב</b>]");
}

TEST(PseudoText, keepsTheProductsName) {
    EXPECT_EQ(accented("Ondrel Vexora Lumiq"), "[Ondrel Vexora Lumiq öñé ţ]");
    EXPECT_EQ(rightToLeft("to Ondrel Vexora"), "[תו Ondrel Vexora ונע~]");
}

TEST(PseudoText, keepsConversions) {
    EXPECT_EQ(accented("%d"), "[%d]");
    EXPECT_EQ(accented("%-5.2lf of %s: 100 %%"), "[%-5.2lf öƒ %s: 100 %% öñé ţŵ]");
}

TEST(PseudoText, writesFromRightToLeft) {
    EXPECT_EQ(rightToLeft("Close"), "[צלוסע]");
}

TEST(PseudoText, tellsConversionsApart) {
    EXPECT_EQ(conversions("%d of %5.1f%%, %lu"), (std::vector<std::string>{"%d", "%5.1f", "%lu"}));
    EXPECT_EQ(conversions("100 %% sure"), std::vector<std::string>{});
    EXPECT_EQ(conversions("100%"), std::vector<std::string>{"%"});
    EXPECT_EQ(conversions("100%!"), std::vector<std::string>{"%"});
    // A blank is a flag: formatting would take an argument for this.
    EXPECT_EQ(conversions("100 % done"), std::vector<std::string>{"% d"});
}

TEST(PseudoText, countsCharactersNotBytes) {
    EXPECT_EQ(characterCount("añ€\U0001F600"), 4U);
}

} // namespace GalleryTest
