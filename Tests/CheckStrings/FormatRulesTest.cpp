#include "CheckStringsFixture.h"

using FormatRules = LineCaseTest;
using Format = CheckStringsFixture;

TEST_P(FormatRules, findsOneFaultOrPasses) {
    check();
}

INSTANTIATE_TEST_SUITE_P(
    Conversions, FormatRules,
    testing::Values(found("missing", "%d of %s", "%d", "conversions"),
                    found("additional", "Start", "Los, %s", "conversions"),
                    found("reordered", "%d of %s", "%s: %d", "conversions"),
                    found("otherLetter", "%d files", "%u Dateien", "conversions"),
                    found("otherLength", "%ld files", "%d Dateien", "conversions"),
                    found("positional", "%d of %s", "%1$d von %2$s", "conversions"),
                    found("positionalReordered", "%d of %s", "%2$s: %1$d", "conversions"),
                    found("widthFromAnArgument", "%d files", "%*d Dateien", "conversions"),
                    found("precisionFromAnArgument", "%f times", "%.*f mal", "conversions"),
                    found("blankAsFlag", "Start", "zu 100 % da", "conversions"),
                    passes("thousands", "%d files", "%'d Dateien"),
                    passes("allFlags", "%d files", "%-+ #0'5d Dateien"),
                    found("writtenByAnEscape", "a\\n%s", "a\\nb", "conversions"),
                    passes("same", "%d of %s", "%d von %s"),
                    passes("otherFlag", "%d files", "%+d Dateien"),
                    passes("otherWidth", "%5d files", "%-8d Dateien"),
                    passes("otherPrecision", "%.1f times", "%08.3f mal"),
                    passes("sameWithArgumentsAsWidthAndPrecision", "%*.*f times", "%-*.*f mal"),
                    passes("longLength", "%lld files", "%lld Dateien"),
                    passes("doubledPercentIsNone", "%d files", "%%s %d %%d")),
    FormatRules::nameOf);

INSTANTIATE_TEST_SUITE_P(
    SinglePercent, FormatRules,
    testing::Values(found("atTheEnd", "Start", "100%", "single-percent"),
                    found("beforeAnotherCharacter", "Start", "100%!", "single-percent"),
                    found("behindADoubledOne", "Start", "100%%%", "single-percent"),
                    found("withFlagsOnly", "Start", "100%-5", "single-percent"),
                    found("positionWithoutLetter", "Start", "%1$", "single-percent"),
                    found("positionWithoutNumber", "Start", "%$d", "single-percent"),
                    found("doubledWithAWidthBetween", "Start", "%5%", "single-percent"),
                    found("withAnArgumentAsWidthOnly", "Start", "%*!", "single-percent"),
                    passes("doubled", "Start", "100%%"),
                    passes("doubledTwice", "Start", "%%%%, %%")),
    FormatRules::nameOf);

namespace {

std::string many(std::size_t count) {
    return std::string(count, 'x');
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Length, FormatRules,
    testing::Values(
        found("oneByteTooLong", "Start", many(999), "long-result"),
        found("oneByteTooLongWithEscapes", "Start", many(998) + "\\n", "long-result"),
        found("oneByteTooLongWithAPercentSign", "Start", many(998) + "%%", "long-result"),
        found("oneByteTooLongWithAConversion", "%s", many(999) + "%s", "long-result"),
        found("fewCharactersOfManyBytes", "Start", many(997) + "\xC3\xA9", "long-result"),
        passes("longest", "Start", many(998)),
        passes("longestAfterUnescaping", "Start", many(996) + "\\n\\n"),
        passes("longestAfterFormatting", "%d", many(997) + "%%%d"),
        passes("longestWithManyBytes", "Start", many(996) + "\xC3\xA9")),
    FormatRules::nameOf);

TEST_F(Format, everyLengthBelongsToItsConversion) {
    for (const std::string length : {"h", "hh", "l", "ll", "q", "L", "j", "z", "t"}) {
        const std::string key = "%" + length + "d files";
        EXPECT_EQ(findingsIn(stringsOf({key}), {key}), Lines{}) << length;
        EXPECT_EQ(findingsIn("\"" + key + "\" = \"%d Dateien\"\n", {key}), Lines{"1: conversions"})
            << length;
    }
}

TEST_F(Format, everyLetterOfPrintfMakesAConversion) {
    for (const char letter : std::string("diouxXeEfFgGaAcCsSpnm")) {
        const std::string text = std::string("%") + letter;
        EXPECT_EQ(findingsIn(stringsOf({text}), {text}), Lines{}) << letter;
        EXPECT_EQ(findingsIn("\"Start\" = \"" + text + "\"\n", {"Start"}), Lines{"1: conversions"})
            << letter;
    }
}

TEST_F(Format, positionMayBeFollowedByFlagsAndWidths) {
    for (const std::string layout : {"*2$", ".3", "-5", "+", " ", "#", "'", "05"}) {
        EXPECT_EQ(findingsIn("\"Start\" = \"%1$" + layout + "d\"\n", {"Start"}),
                  Lines{"1: conversions"})
            << layout;
    }
}

// Takes the time that the build file grants this test unless each conversion is read once.
TEST_F(Format, manyConversionsAreReadInOneGo) {
    std::string key;
    for (int count = 0; count < 200'000; ++count) {
        key += "%d";
    }
    EXPECT_EQ(findingsIn(stringsOf({key}), {key}), Lines{});
}

TEST_F(Format, additionalConversionIsMetWithTheWayToWriteAPercentSign) {
    folder_.write("reference", stringsOf({"Start"}));
    folder_.write("text", "\"Start\" = \"100 % des Ganzen\"\n");
    EXPECT_EQ(findings({"--reference", "reference", "text"}),
              Lines{"text:1: conversions: conversions of the key: none; of the text: %d; "
                    "write %% for a percent sign"});
    folder_.write("text", "\"Start %d\" = \"Los\"\n");
    folder_.write("reference", stringsOf({"Start %d"}));
    EXPECT_EQ(findings({"--reference", "reference", "text"}),
              Lines{"text:1: conversions: conversions of the key: %d; of the text: none"});
}
