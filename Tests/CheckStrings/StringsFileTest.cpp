#include "CheckStringsFixture.h"

using StringsFile = CheckStringsFixture;

TEST_F(StringsFile, everyFaultOfALineIsFound) {
    EXPECT_EQ(findingsIn(" \"Start\"=\"Los\";\n", {"Start"}),
              (Lines{"1: indentation", "1: trailing-text", "1: spacing"}));
}

TEST_F(StringsFile, emptyKeyOrTextIsFound) {
    EXPECT_EQ(findingsIn("\"Start\" = \"Los\"\n\"\" = \"Los\"\n", {"Start"}),
              Lines{"2: empty-text"});
    EXPECT_EQ(findingsIn("\" = \"a\"\n\"Start\" = \"Los\"\n", {"Start"}), Lines{"1: empty-text"});
    EXPECT_EQ(findingsIn("\n\"Start\" = \"\"\r\n", {"Start"}), Lines{"2: empty-text"});
}

TEST_F(StringsFile, emptyTextStillCountsAsItsKeysAndIsFoundOnce) {
    EXPECT_EQ(findingsIn("\"<b>Go</b> %d\" = \"\"\n", {"<b>Go</b> %d"}), Lines{"1: empty-text"});
    EXPECT_EQ(findingsIn("\"Start\" = \"\"\n\"Start\" = \"Los\"\n", {"Start"}),
              (Lines{"1: empty-text", "2: duplicate-key"}));
}

TEST_F(StringsFile, anyOtherLineThatTheProgramDropsIsFound) {
    const std::string entry = "\"Start\" = \"Los\"\n";
    for (const std::string line :
         {"Start = Los", "Start = \"Los\"", "\"Start\" = Los", "\"Start\"", "\"Start\" \"Los\"",
          "[Buttons]", "; note", "/ / note", "\"Start\" : \"Los\"", "*/", "=", "\"="}) {
        EXPECT_EQ(findingsIn(entry + line, {"Start"}), Lines{"2: not-an-entry"}) << line;
    }
}

TEST_F(StringsFile, commentsAndBlankLinesPass) {
    const std::string entry = "\"Start\" = \"Los\"\n";
    for (const std::string lines :
         {"", "\n", " \t\n", "\r\n", "\r\r\n", "# note\n", "  # note\r\n", "//\n", "/* note */\n",
          "/**/\n", "/* note\n\"quoted\"\n * more */\n", "# \"Start\" = \"Lauf\"\n",
          "/* a */ \n"}) {
        EXPECT_EQ(findingsIn(lines + entry, {"Start"}), Lines{}) << lines;
        EXPECT_EQ(findingsIn(entry + lines, {"Start"}), Lines{}) << lines;
    }
}

TEST_F(StringsFile, whatFollowsTheEndOfACommentIsFound) {
    const std::string entry = "\"Start\" = \"Los\"\n";
    EXPECT_EQ(findingsIn("/* a */ b\n" + entry, {"Start"}), Lines{"1: not-an-entry"});
    EXPECT_EQ(findingsIn("/* a\nb */ c\n" + entry, {"Start"}), Lines{"2: not-an-entry"});
    EXPECT_EQ(findingsIn("/*\n*/ " + entry, {"Start"}), Lines{"2: indentation"});
}

TEST_F(StringsFile, lastLineNeedsNoLineEnd) {
    EXPECT_EQ(findingsIn("\"Start\" = \"Los\"", {"Start"}), Lines{});
    EXPECT_EQ(findingsIn("\"Start\" = \"Los\";", {"Start"}), Lines{"1: trailing-text"});
}

TEST_F(StringsFile, byteOrderMarkIsFoundOnceAndAtTheStartOnly) {
    const std::string mark = "\xEF\xBB\xBF";
    const std::string entry = "\"Start\" = \"Los\"\n";
    EXPECT_EQ(findingsIn(mark + entry, {"Start"}), Lines{"1: byte-order-mark"});
    EXPECT_EQ(findingsIn(mark + "# note\n\"Start\" = \"\"Los\"\"\n", {"Start"}),
              (Lines{"1: byte-order-mark", "2: misread"}));
    EXPECT_EQ(findingsIn("# " + mark + "\n" + entry, {"Start"}), Lines{});
    EXPECT_EQ(findingsIn("\"Start\" = \"" + mark + "Los\"\n", {"Start"}), Lines{});
}

TEST_F(StringsFile, utf16IsNotReadAnyFurther) {
    for (const std::string mark : {"\xFF\xFE", "\xFE\xFF"}) {
        EXPECT_EQ(findingsIn(mark + "\x93\xFF\n", {"Start"}),
                  (Lines{"0: missing-key", "1: byte-order-mark"}));
    }
}

TEST_F(StringsFile, invalidUtf8IsFound) {
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

TEST_F(StringsFile, everyKindOfCharacterPasses) {
    for (const std::string bytes :
         {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(findingsIn("\"Start\" = \"" + bytes + "\"\n", {"Start"}), Lines{});
    }
}
