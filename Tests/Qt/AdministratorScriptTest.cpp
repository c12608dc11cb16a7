#include "Platform/Qt/AdministratorScript.h"

#include "Core/InstallRun.h"
#include "Platform/Recording/CallLog.h"
#include "Platform/Recording/MemoryFiles.h"

#include <gtest/gtest.h>

namespace QtTest {

using Vexora::administratorScriptSource;
using Vexora::shellCommandOf;

namespace {

/// The script with this text as its literal.
std::string scriptWith(const std::string& literal) {
    return "do shell script \"" + literal + "\" with administrator privileges";
}

} // namespace

TEST(ShellCommand, ofAPlainPath) {
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/opt/setup")), "/opt/setup/install true");
}

TEST(ShellCommand, keepsBlanksEscapedForTheShell) {
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/media/My  Disk/The Setup")),
              "/media/My\\ \\ Disk/The\\ Setup/install true");
}

TEST(ShellCommand, passesDollarsAndApostrophesThrough) {
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/a$HOME/`b`/c'd;e&f")),
              "/a$HOME/`b`/c'd;e&f/install true");
}

TEST(ShellCommand, passesOtherScriptsThroughByteForByte) {
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/ホーム/Größe/\xff\x01")),
              "/ホーム/Größe/\xff\x01/install true");
}

TEST(ShellCommand, ofAPathWithAQuoteIsBroken) {
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/a\"b")), std::nullopt);
    EXPECT_EQ(shellCommandOf(administratorScriptSource("\"")), std::nullopt);
    EXPECT_EQ(shellCommandOf(scriptWith("a\" with administrator privileges; \"")), std::nullopt);
}

TEST(ShellCommand, readsBackslashesAsTheLiteralDoes) {
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/a\\\\b")), "/a\\b/install true");
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/a\\nb\\rc\\td")),
              "/a\nb\rc\td/install true");
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/a\\\"b")), "/a\"b/install true");
    EXPECT_EQ(shellCommandOf(administratorScriptSource("/a\\q")), std::nullopt);
}

TEST(ShellCommand, mayBeEmpty) {
    EXPECT_EQ(shellCommandOf(scriptWith("")), "");
}

TEST(ShellCommand, needsTheWholeFrame) {
    const std::string whole = scriptWith("true");
    EXPECT_EQ(shellCommandOf(whole), "true");
    EXPECT_EQ(shellCommandOf(""), std::nullopt);
    EXPECT_EQ(shellCommandOf("true"), std::nullopt);
    EXPECT_EQ(shellCommandOf(" " + whole), std::nullopt);
    EXPECT_EQ(shellCommandOf(whole + " "), std::nullopt);
    EXPECT_EQ(shellCommandOf(whole.substr(0, whole.size() - 1)), std::nullopt);
    EXPECT_EQ(shellCommandOf("do shell script \"true\""), std::nullopt);
    EXPECT_EQ(shellCommandOf("do shell script \"true"), std::nullopt);
    EXPECT_EQ(shellCommandOf("do shell script \""), std::nullopt);
}

TEST(ShellCommand, endsNotInABackslash) {
    EXPECT_EQ(shellCommandOf("do shell script \"true\\"), std::nullopt);
    EXPECT_EQ(shellCommandOf(scriptWith("true\\")), std::nullopt);
}

TEST(QtAdministratorScript, runsNothingForAnyOtherSource) {
    Vexora::Recording::CallLog calls;
    Vexora::Recording::MemoryFiles files(calls);
    Vexora::PosixProcessLauncher processes;
    Vexora::QtAdministratorScript script(processes, files);
    EXPECT_FALSE(script.execute("do shell script \"true\""));
    EXPECT_FALSE(script.execute(administratorScriptSource("/a\"b")));
    EXPECT_FALSE(script.execute(""));
    EXPECT_EQ(calls.lines(), Vexora::Recording::Lines{});
}

} // namespace QtTest
