#include "Platform/Posix/ShellCommand.h"

#include "Support/TemporaryFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

namespace fs = std::filesystem;
using Vexora::programOfShellCommand;

TEST(ShellCommand, isTheProgramWithTheArgumentTrue) {
    EXPECT_EQ(programOfShellCommand("/a/install true"), "/a/install");
    EXPECT_EQ(programOfShellCommand("/a\\ \\ b/~#!=%@{},*?[]\x01\xff/install true"),
              "/a  b/~#!=%@{},*?[]\x01\xff/install");
    for (const char* line :
         {"", "true", " true", "install true", "a/install true", "/install", "/install  true",
          "/install True", "/install true ", "/a b/install true", "/a\\b true", "/a\\\\ b true",
          "/a\\\\\\ b true", "/install\\ true", "\\/install true"}) {
        EXPECT_EQ(programOfShellCommand(line), std::nullopt) << line;
    }
}

TEST(ShellCommand, holdsNothingThatAShellMayAct) {
    for (const char character : std::string("$`;|&<>()'\"\t\n")) {
        for (const std::string& name : {std::string("/x"), std::string("/x\\ y")}) {
            EXPECT_NE(programOfShellCommand(name + "/install true"), std::nullopt);
            EXPECT_EQ(programOfShellCommand(name + character + "/install true"), std::nullopt)
                << character;
        }
    }
}

namespace {

/// A folder for names that a shell takes for patterns, and the system's shell.
class ShellCommandPattern : public testing::Test {
protected:
    ~ShellCommandPattern() override { ::umask(mask); }

    /// Whether the shell starts the program in that folder below the temporary one.
    bool starts(const std::string& name) {
        fs::create_directories(folder.path() / name);
        return Vexora::shellStartsItsProgramAlone(
            processes, "/bin/sh", (folder.path() / name).string() + "/install true");
    }

    const mode_t mask = ::umask(022);
    TestSupport::TemporaryFolder folder;
    Vexora::PosixProcessLauncher processes;
};

} // namespace

TEST_F(ShellCommandPattern, matchesNothingButItselfAtEveryStep) {
    EXPECT_TRUE(starts("x/a*"));
    EXPECT_TRUE(starts("x/a*/b?/c"));
    folder.write("x/a*/bb", "");
    EXPECT_FALSE(starts("x/a*/b?/c"));
    EXPECT_TRUE(starts("x/a*/c"));
    folder.write("x/ab", "");
    EXPECT_FALSE(starts("x/a*/c"));
    EXPECT_TRUE(starts("x/ab?"));
}

TEST_F(ShellCommandPattern, liesWhereOnlyThisUserAndRootAddNames) {
    const fs::path parent = folder.path() / "parent";
    fs::create_directory(parent);
    for (const auto& [mode, trusted] : {std::pair(0755, true), std::pair(0775, false),
                                        std::pair(0757, false), std::pair(01777, false)}) {
        fs::permissions(parent, fs::perms(mode));
        EXPECT_EQ(starts("parent/[x]"), trusted) << std::oct << mode;
        for (const char* name : {"x]", "[x", "]["}) {
            EXPECT_TRUE(starts(std::string("parent/") + name)) << name << std::oct << mode;
        }
    }
    fs::permissions(parent, fs::perms(0755));
    // Only root can give a folder away.
    const bool givenAway = ::chown(parent.c_str(), ::geteuid() + 1, static_cast<gid_t>(-1)) == 0;
    EXPECT_EQ(starts("parent/[x]"), !givenAway);
}

TEST_F(ShellCommandPattern, liesWhereThisUserSeesAllNames) {
    EXPECT_TRUE(starts("parent/a*"));
    fs::permissions(folder.path() / "parent", fs::perms(0311));
    EXPECT_EQ(starts("parent/a*"), ::geteuid() == 0);
}

TEST_F(ShellCommandPattern, needsAShell) {
    EXPECT_FALSE(Vexora::shellStartsItsProgramAlone(processes, folder.path() / "missing",
                                                    "/bin/install true"));
}
