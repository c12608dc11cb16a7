#include "CheckStringsFixture.h"

#include "Rules.h"

#include <filesystem>

class CommandLine : public CheckStringsFixture {
protected:
    /// What the program says on standard error when it cannot do what the arguments ask for.
    std::string refusalOf(const std::vector<std::string>& arguments) const {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.output, "");
        return result.errors;
    }
};

TEST_F(CommandLine, helpNamesUsageAndEveryRule) {
    const Result help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.errors, "");
    EXPECT_TRUE(help.output.starts_with("Usage: check-strings "));
    for (const CheckStrings::RuleText& rule : CheckStrings::allRules) {
        EXPECT_NE(help.output.find("\n  " + std::string(rule.name) + " "), std::string::npos)
            << rule.name;
    }
}

TEST_F(CommandLine, helpComesBeforeWhateverElseIsAsked) {
    const std::string help = run({"--help"}).output;
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"nowhere", "--help"},
          {"--bogus", "--help"},
          {"--reference", "--help"},
          {"--reference", "a", "--reference", "--help"}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 0) << arguments.front();
        EXPECT_EQ(result.output, help) << arguments.front();
    }
}

TEST_F(CommandLine, misuseIsRefused) {
    const std::string hint = "; see check-strings --help\n";
    EXPECT_EQ(refusalOf({}), "check-strings: nothing to check" + hint);
    EXPECT_EQ(refusalOf({"--quick"}), "check-strings: unknown option --quick" + hint);
    EXPECT_EQ(refusalOf({"all", "-v"}), "check-strings: unknown option -v" + hint);
    EXPECT_EQ(refusalOf({"--reference"}), "check-strings: --reference takes one file, once" + hint);
    EXPECT_EQ(refusalOf({"--reference", "a", "--reference", "b", "c"}),
              "check-strings: --reference takes one file, once" + hint);
    EXPECT_EQ(refusalOf({"--reference", "a"}), "check-strings: nothing to check" + hint);
    EXPECT_EQ(refusalOf({"a", "b"}),
              "check-strings: strings files are checked against the file behind --reference" +
                  hint);
}

TEST_F(CommandLine, whatCannotBeReadIsRefused) {
    folder_.write("reference", stringsOf({"Start"}));
    std::filesystem::create_directory(folder_.path() / "folder");
    EXPECT_EQ(refusalOf({"nowhere"}),
              "check-strings: cannot read the file nowhere/en.lproj/Localizable.strings\n");
    EXPECT_EQ(refusalOf({"--reference", "nowhere", "reference"}),
              "check-strings: cannot read the file nowhere\n");
    EXPECT_EQ(refusalOf({"--reference", "reference", "nowhere"}),
              "check-strings: cannot read the file nowhere\n");
    EXPECT_EQ(refusalOf({"--reference", "reference", "reference", "folder"}),
              "check-strings: cannot read the file folder\n");
    EXPECT_EQ(refusalOf({"--reference", "reference", "folder"}),
              "check-strings: no language folder in folder\n");
}

TEST_F(CommandLine, referenceWithoutEntriesIsRefused) {
    folder_.write("reference", "Start = Los\n");
    EXPECT_EQ(refusalOf({"--reference", "reference", "reference"}),
              "check-strings: no entry in the reference reference\n");
}

TEST_F(CommandLine, fileThatCannotBeReadToItsEndIsNamed) {
    const std::string memory = "/proc/self/mem"; // a regular file whose first byte cannot be read
    if (!std::filesystem::is_regular_file(memory)) {
        GTEST_SKIP() << "this system has no " << memory;
    }
    folder_.write("reference", stringsOf({"Start"}));
    EXPECT_EQ(refusalOf({"--reference", "reference", memory}),
              "check-strings: cannot read the file " + memory + "\n");
    EXPECT_EQ(refusalOf({"--reference", memory, "reference"}),
              "check-strings: cannot read the file " + memory + "\n");
}

TEST_F(CommandLine, linkLoopIsAFileThatCannotBeRead) {
    folder_.write("reference", stringsOf({"Start"}));
    std::filesystem::create_symlink("loop", folder_.path() / "loop");
    EXPECT_EQ(refusalOf({"--reference", "reference", "loop"}),
              "check-strings: cannot read the file loop\n");
}

TEST_F(CommandLine, controlCharactersAreNeverPrintedAsTheyAre) {
    folder_.write("reference", stringsOf({"Start"}));
    folder_.write("a\nb\x1B[1m",
                  "\"Start\" = \"a\\n\x1B[2m\xC2\x9B\x7Fé\"\"\n\"\xFF\" = \"Los\"\n");
    const std::string name = R"(a\x0Ab\x1B[1m)";
    EXPECT_EQ(findings({"--reference", "reference", "a\nb\x1B[1m"}),
              (Lines{name + R"(:1: misread: the program reads: a\x0A\x1B[2m\xC2\x9B\x7Fé)",
                     name + ":2: invalid-utf-8: the line is not valid UTF-8",
                     name + R"(:2: unknown-key: not a key of the reference: \xFF)"}));
    EXPECT_EQ(refusalOf({"--a\x1B"}),
              "check-strings: unknown option --a\\x1B; see check-strings --help\n");
    EXPECT_EQ(refusalOf({"--reference", "b\nc", "d"}),
              "check-strings: cannot read the file b\\x0Ac\n");
}

TEST_F(CommandLine, outputThatCannotBeWrittenIsNoSuccess) {
    const std::string full = "/dev/full";
    if (!std::filesystem::exists(full)) {
        GTEST_SKIP() << "this system has no " << full;
    }
    EXPECT_EQ(statusOf({"--help"}, full), 2);
}

TEST_F(CommandLine, pathsAreTakenAsTheyAreGiven) {
    folder_.write("with blank/reference", stringsOf({"Start"}));
    folder_.write("with blank/text", "x\n\"Start\" = \"Los\"\n");
    const std::string text = (folder_.path() / "with blank/text").string();
    const Lines lines = findings({"--reference", "with blank/reference", text});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines.front().starts_with(text + ":1: not-an-entry: ")) << lines.front();
}
