#include "CheckStringsFixture.h"

using LineRulesTest = LineCaseTest;
using StringsFileTest = CheckStringsFixture;

TEST_P(LineRulesTest, findsOneFaultOrPasses) {
    check();
}

namespace {

LineCase found(const char* name, const std::string& line, const std::string& rule) {
    return {name, "Start", line, rule};
}

LineCase passes(const char* name, const std::string& line) {
    return found(name, line, "");
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    TrailingText, LineRulesTest,
    testing::Values(found("semicolon", R"("Start" = "Los";)", "trailing-text"),
                    found("blank", "\"Start\" = \"Los\" ", "trailing-text"),
                    found("comment", R"("Start" = "Los" // go)", "trailing-text"),
                    found("commentWithQuotes", R"("Start" = "Los"; // "go")", "trailing-text"),
                    found("blankAndSemicolon", R"("Start" = "Los" ;)", "trailing-text"),
                    found("semicolonAfterQuotesInside", R"("Start" = "Das "Los" da";)",
                          "trailing-text"),
                    found("secondCarriageReturn", "\"Start\" = \"Los\"\r\r", "trailing-text"),
                    passes("carriageReturnAtTheEnd", "\"Start\" = \"Los\"\r"),
                    passes("semicolonInTheText", R"("Start" = "Los; weiter;")"),
                    passes("quotesInTheText", R"("Start" = "Das "Los" da")"),
                    passes("semicolonBehindQuotesInTheText", R"("Start" = "Das "Los"; da")"),
                    passes("blanksInsideTheQuotes", R"("Start" = " Los ")")),
    LineRulesTest::nameOf);

INSTANTIATE_TEST_SUITE_P(Spacing, LineRulesTest,
                         testing::Values(found("none", R"("Start"="Los")", "spacing"),
                                         found("onlyBefore", R"("Start" ="Los")", "spacing"),
                                         found("onlyBehind", R"("Start"= "Los")", "spacing"),
                                         found("twoSpaces", R"("Start"  = "Los")", "spacing"),
                                         found("tab", "\"Start\"\t= \"Los\"", "spacing"),
                                         passes("otherEqualsSignsInTheText",
                                                R"("Start" = "a=b, "a"="b"!")"),
                                         passes("oneOnEachSide", R"("Start" = "Los")")),
                         LineRulesTest::nameOf);

INSTANTIATE_TEST_SUITE_P(Indentation, LineRulesTest,
                         testing::Values(found("spaces", R"(  "Start" = "Los")", "indentation"),
                                         found("tab", "\t\"Start\" = \"Los\"", "indentation"),
                                         found("word", R"(- "Start" = "Los")", "indentation"),
                                         found("closedComment", R"(/* go */ "Start" = "Los")",
                                               "indentation")),
                         LineRulesTest::nameOf);

INSTANTIATE_TEST_SUITE_P(
    RepeatedSeparator, LineRulesTest,
    testing::Values(found("twice", R"("Start" = "Los" = "Lauf")", "repeated-separator"),
                    found("atTheEnd", R"("Start" = "Los" = ")", "repeated-separator"),
                    found("threeTimes", R"("Start" = "a" = "b" = "c")", "repeated-separator"),
                    passes("withoutItsQuotes", R"("Start" = "Los = Lauf")"),
                    passes("withoutItsSpaces", R"("Start" = "Das "Los"="Lauf" da")")),
    LineRulesTest::nameOf);

INSTANTIATE_TEST_SUITE_P(MissingQuote, LineRulesTest,
                         testing::Values(found("closing", R"("Start" = "Los)", "missing-quote"),
                                         found("closingBehindAPair", R"("Start" = "Das "Los" da)",
                                               "missing-quote"),
                                         found("opening", R"(Start" = "Los")", "missing-quote"),
                                         passes("oneInsideTheText", R"("Start" = "5" breit")")),
                         LineRulesTest::nameOf);

TEST_F(StringsFileTest, everyFaultOfALineIsFound) {
    EXPECT_EQ(findingsIn(" \"Start\"=\"Los\";\n", {"Start"}),
              (Lines{"1: indentation", "1: trailing-text", "1: spacing"}));
}

TEST_F(StringsFileTest, emptyKeyOrTextIsFound) {
    EXPECT_EQ(findingsIn("\"Start\" = \"Los\"\n\"\" = \"Los\"\n", {"Start"}),
              Lines{"2: empty-text"});
    EXPECT_EQ(findingsIn("\" = \"a\"\n\"Start\" = \"Los\"\n", {"Start"}), Lines{"1: empty-text"});
    EXPECT_EQ(findingsIn("\n\"Start\" = \"\"\r\n", {"Start"}), Lines{"2: empty-text"});
    EXPECT_EQ(findingsIn("\"Start\" = \" \"\n", {"Start"}), Lines{});
}

TEST_F(StringsFileTest, anyOtherLineThatTheProgramDropsIsFound) {
    const std::string entry = "\"Start\" = \"Los\"\n";
    for (const std::string line :
         {"Start = Los", "Start = \"Los\"", "\"Start\" = Los", "\"Start\"", "\"Start\" \"Los\"",
          "[Buttons]", "; note", "/ / note", "\"Start\" : \"Los\"", "*/", "=", "\"="}) {
        EXPECT_EQ(findingsIn(entry + line, {"Start"}), Lines{"2: not-an-entry"}) << line;
    }
}

TEST_F(StringsFileTest, commentsAndBlankLinesPass) {
    const std::string entry = "\"Start\" = \"Los\"\n";
    for (const std::string lines :
         {"", "\n", " \t\n", "\r\n", "# note\n", "  # note\r\n", "//\n", "/* note */\n", "/**/\n",
          "/* note\n\"quoted\"\n * more */\n", "# \"Start\" = \"Lauf\"\n", "/* a */ \n"}) {
        EXPECT_EQ(findingsIn(lines + entry, {"Start"}), Lines{}) << lines;
        EXPECT_EQ(findingsIn(entry + lines, {"Start"}), Lines{}) << lines;
    }
}

TEST_F(StringsFileTest, lastLineNeedsNoLineEnd) {
    EXPECT_EQ(findingsIn("\"Start\" = \"Los\"", {"Start"}), Lines{});
    EXPECT_EQ(findingsIn("\"Start\" = \"Los\";", {"Start"}), Lines{"1: trailing-text"});
}

TEST_F(StringsFileTest, byteOrderMarkIsFoundOnceAndAtTheStartOnly) {
    const std::string mark = "\xEF\xBB\xBF";
    const std::string entry = "\"Start\" = \"Los\"\n";
    EXPECT_EQ(findingsIn(mark + entry, {"Start"}), Lines{"1: byte-order-mark"});
    EXPECT_EQ(findingsIn(mark + "# note\n\"Start\" = \"\"Los\"\"\n", {"Start"}),
              (Lines{"1: byte-order-mark", "2: misread"}));
    EXPECT_EQ(findingsIn("# " + mark + "\n" + entry, {"Start"}), Lines{});
    EXPECT_EQ(findingsIn("\"Start\" = \"" + mark + "Los\"\n", {"Start"}), Lines{});
}

TEST_F(StringsFileTest, utf16IsNotReadAnyFurther) {
    for (const std::string mark : {"\xFF\xFE", "\xFE\xFF"}) {
        EXPECT_EQ(findingsIn(mark + "\x93\xFF\n", {"Start"}),
                  (Lines{"0: missing-key", "1: byte-order-mark"}));
    }
}

TEST_F(StringsFileTest, invalidUtf8IsFound) {
    for (const std::string bytes :
         {"\x80", "\xBF\xBF", "\xF9\x80\x80\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xC3(",
          "\xE2(\x82", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFE", "L\xF6s",
          "\xE2\x82\xC3\xA9"}) {
        EXPECT_EQ(findingsIn("\n\"Start\" = \"" + bytes + "\"\n", {"Start"}),
                  Lines{"2: invalid-utf-8"});
        EXPECT_EQ(findingsIn("# " + bytes + "\n\"Start\" = \"Los\"\n", {"Start"}),
                  Lines{"1: invalid-utf-8"});
    }
}

TEST_F(StringsFileTest, everyKindOfCharacterPasses) {
    for (const std::string bytes :
         {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(findingsIn("\"Start\" = \"" + bytes + "\"\n", {"Start"}), Lines{});
    }
}
