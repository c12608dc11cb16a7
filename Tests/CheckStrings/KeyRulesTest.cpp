#include "CheckStringsFixture.h"

using KeyRules = CheckStringsFixture;

TEST_F(KeyRules, missingKeyIsFoundForTheFileAsAWhole) {
    EXPECT_EQ(findingsIn(stringsOf({"Start"}), {"Start", "Close"}), Lines{"0: missing-key"});
    EXPECT_EQ(findingsIn("", {"Start", "Close"}), (Lines{"0: missing-key", "0: missing-key"}));
}

TEST_F(KeyRules, missingKeyIsNamed) {
    folder_.write("reference", stringsOf({"Start", "Close"}));
    folder_.write("text", stringsOf({"Start"}));
    EXPECT_EQ(findings({"--reference", "reference", "text"}), Lines{"text:0: missing-key: Close"});
}

TEST_F(KeyRules, unknownKeyIsFound) {
    EXPECT_EQ(findingsIn(stringsOf({"Start", "start", "Start "}), {"Start"}),
              (Lines{"2: unknown-key", "3: unknown-key"}));
}

TEST_F(KeyRules, repeatedUnknownKeyIsCalledUnknownOnce) {
    EXPECT_EQ(findingsIn(stringsOf({"Start", "Stop", "Stop"}), {"Start"}),
              (Lines{"2: unknown-key", "3: duplicate-key"}));
}

TEST_F(KeyRules, duplicateKeyIsFoundOnEveryLaterLine) {
    EXPECT_EQ(findingsIn("\"Go\" = \"a\"\n\"Start\" = \"a\"\n\"Go\" = \"b\"\n\"Go\" = \"a\"\n",
                         {"Go", "Start"}),
              (Lines{"3: duplicate-key", "4: duplicate-key"}));
}

TEST_F(KeyRules, faultyLineStillCountsAsItsKeys) {
    EXPECT_EQ(findingsIn("\"Start\"=\"a\"\n\"Start\" = \"b\"\n", {"Start"}),
              (Lines{"1: spacing", "2: duplicate-key"}));
}

TEST_F(KeyRules, orderOfKeysDoesNotMatter) {
    EXPECT_EQ(findingsIn(stringsOf({"b", "c", "a"}), {"a", "b", "c"}), Lines{});
}

TEST_F(KeyRules, quotesAtTheEndsOfATextAreMisread) {
    EXPECT_EQ(findingsIn("\"Start\" = \"Das \"Los\"\"\n", {"Start"}), Lines{"1: misread"});
    EXPECT_EQ(findingsIn("\"Start\" = \"\"Los\" da\"\n", {"Start"}), Lines{"1: misread"});
    EXPECT_EQ(findingsIn("\"Start\" = \"Das \"Los\".\"\n", {"Start"}), Lines{});
}

TEST_F(KeyRules, textOfQuotesAloneIsMisread) {
    EXPECT_EQ(findingsIn("\"Start\" = \"\"\"\"\n", {"Start"}), Lines{"1: misread"});
}

TEST_F(KeyRules, carriageReturnAtTheStartOfATextIsMisread) {
    EXPECT_EQ(findingsIn("\"Start\" = \"\rLos\"\n", {"Start"}), Lines{"1: misread"});
    EXPECT_EQ(findingsIn("\"Start\" = \"L\ros\"\n", {"Start"}), Lines{});
}

TEST_F(KeyRules, textBehindAZeroByteIsMisread) {
    using namespace std::string_literals;
    EXPECT_EQ(findingsIn("\"Start\" = \"Lo\0s\"\n"s, {"Start"}), Lines{"1: misread"});
    EXPECT_EQ(findingsIn("\"St\0rt\" = \"Los\"\n"s, {"St\0rt"s}), Lines{"1: misread"});
}

TEST_F(KeyRules, keyThatNoTextOfTheProgramFindsIsMisread) {
    for (const std::string key : {"Say \"go\" now", "a\tb", "a\\xb", "a\\", "Say \\\"go\\\""}) {
        EXPECT_EQ(findingsIn("\"" + key + "\" = \"Los\"\n", {key}), Lines{"1: misread"}) << key;
    }
    for (const std::string key : {"Say \"go\" now", "a\tb"}) {
        EXPECT_EQ(findingsIn(stringsOf({key}), {key}), Lines{"1: misread"}) << key;
    }
    for (const std::string key : {"Say \\\"go\\\" now", "a\\tb", "a\\vb", "a\\\\b", "a b\\\\"}) {
        EXPECT_EQ(findingsIn("\"" + key + "\" = \"Los\"\n", {key}), Lines{}) << key;
    }
}

TEST_F(KeyRules, entryInACommentOfSeveralLinesIsMisread) {
    const std::string entry = "\"Start\" = \"Los\"\n";
    EXPECT_EQ(findingsIn("/* old:\n\"Start\" = \"Lauf\"\n*/\n" + entry, {"Start"}),
              Lines{"2: misread"});
    EXPECT_EQ(findingsIn("/*\n\"Start\" = \"Lauf\" */\n" + entry, {"Start"}), Lines{"2: misread"});
    EXPECT_EQ(findingsIn("/*/\n\"Start\" = \"Lauf\"\n*/\n" + entry, {"Start"}),
              Lines{"2: misread"});
    EXPECT_EQ(findingsIn("/*\nold: \"Start\"=\"Lauf\"\n*/\n" + entry, {"Start"}), Lines{});
}

TEST_F(KeyRules, lineOfACommentThatTheProgramNeverLooksUpPasses) {
    const std::string entry = "\"Start\" = \"Los\"\n";
    for (const std::string line :
         {"say \"a\" = \"b\"", " * \"Start\" = \"Lauf\"", "\"Start\" = \"a\" = \"b\"",
          "\"Start\" = \"\"", "\"\" = \"Lauf\"", "\"Stop\" = \"Halt\"", "\"Start\"=\"Lauf\""}) {
        EXPECT_EQ(findingsIn("/*\n" + line + "\n*/\n" + entry, {"Start"}), Lines{}) << line;
    }
    for (const std::string line : {"\"\"Start\" = \"Lauf\"", "Start\" = \"Lauf",
                                   "\"Start\" = \"a\" = \"", "\"Start\" = \" \""}) {
        EXPECT_EQ(findingsIn("/*\n" + line + "\n*/\n" + entry, {"Start"}), Lines{"2: misread"})
            << line;
    }
}

TEST_F(KeyRules, entryThatALaterCommentReplacesIsMisreadToo) {
    EXPECT_EQ(findingsIn("\"Start\" = \"Los\"\n/*\n\"Start\" = \"Lauf\"\n*/\n", {"Start"}),
              (Lines{"1: misread", "3: misread"}));
}

TEST_F(KeyRules, lastOfSeveralLinesIsTheOneThatTheProgramReads) {
    EXPECT_EQ(findingsIn("\"Start\" = \"\"a\"\"\n\"Start\" = \"b\"\n", {"Start"}),
              Lines{"2: duplicate-key"});
}

TEST_F(KeyRules, findingsAreSortedByFileAndLine) {
    folder_.write("reference", stringsOf({"Start"}));
    folder_.write("b", "x\n\"Start\" = \"Los\"\ny\n");
    folder_.write("a", "\"Start\" = \"50%\";\n");
    Lines places;
    for (const std::string& line : findings({"--reference", "reference", "b", "a"})) {
        places.push_back(line.substr(0, line.find(": ", line.find(": ") + 1)));
    }
    EXPECT_EQ(places, (Lines{"a:1: trailing-text", "a:1: single-percent", "b:1: not-an-entry",
                             "b:3: not-an-entry"}));
}
