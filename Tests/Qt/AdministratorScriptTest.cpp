#include "Platform/Qt/AdministratorScript.h"

#include "Core/InstallRun.h"
#include "Platform/Recording/Platform.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace QtTest {

using Vexora::administratorScriptSource;
using Vexora::shellCommandOf;

namespace {

/// The script with this text as its literal.
std::string scriptWith(const std::string& literal) {
    return "do shell script \"" + literal + "\" with administrator privileges";
}

/// The shells of this system that another one may have as its /bin/sh.
std::vector<std::string> shells() {
    std::vector<std::string> found = {"/bin/dash", "/bin/bash"};
    std::erase_if(found, [](const std::string& path) { return !fs::exists(path); });
    return found;
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
    for (const char* escape : {"\\n", "\\r", "\\t", "\\\"", "\\q", "\\ "}) {
        EXPECT_EQ(shellCommandOf(administratorScriptSource(std::string("/a") + escape)),
                  std::nullopt);
    }
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

/// The real service with a stand-in for pkexec, which writes down what it was given and runs it; and
/// folders of any name, each with an install that writes down how it was started.
class QtAdministratorScript : public testing::TestWithParam<std::string> {
protected:
    QtAdministratorScript() {
        writeProgram("pkexec", "echo pkexec says >&2\n"
                               "tr '\\0' '\\n' </proc/$$/environ >\"$base/environment\"\n"
                               "printf '<%s>' \"$@\" >\"$base/asked\"\n"
                               "shift; exec \"$@\"\n");
        // A shell goes by its name.
        fs::create_symlink(GetParam(), folder_.path() / "sh");
        fs::create_directory(folder_.path() / "here");
        fs::create_directory(folder_.path() / "stage");
        fs::permissions(folder_.path() / "stage", fs::perms(0755));
        fs::current_path(folder_.path() / "here");
    }
    ~QtAdministratorScript() override { fs::current_path("/"); }

    void writeProgram(const fs::path& relativePath, const std::string& body) {
        const fs::path path = folder_.write(
            relativePath, "#!/bin/sh\nbase='" + folder_.path().string() + "'\n" + body);
        fs::permissions(path, fs::perms(0755));
    }

    /// Makes a folder of that name with an install that ends like that.
    void addInstall(const std::string& name, const std::string& ending = "") {
        writeProgram(fs::path("stage") / name / "install",
                     "printf '<%s>' \"$0\" \"$@\" >>\"$base/ran\"\n" + ending);
    }

    std::string resources(const std::string& name) const { return folder_.path() / "stage" / name; }

    /// Reruns the install of that folder. \return whether that succeeded.
    bool execute(const std::string& name) {
        return script_.execute(administratorScriptSource(resources(name)));
    }

    /// What the file holds; empty when there is none.
    std::string written(const std::string& file) const {
        return fs::exists(folder_.path() / file) ? folder_.read(file) : "";
    }

    void expectStarted(const std::string& name) {
        SCOPED_TRACE(testing::PrintToString(name));
        EXPECT_TRUE(execute(name));
        EXPECT_EQ(written("ran"), "<" + resources(name) + "/install><true>");
        EXPECT_EQ(calls_.lines(), Vexora::Recording::Lines{});
        forget();
    }

    /// Expects that nobody is asked, nothing runs and the log has one line.
    void expectRefused(const std::string& name) {
        SCOPED_TRACE(testing::PrintToString(name));
        EXPECT_FALSE(execute(name));
        EXPECT_EQ(written("asked") + written("ran"), "");
        EXPECT_TRUE(fs::is_empty("."));
        EXPECT_EQ(calls_.lines(),
                  Vexora::Recording::Lines{
                      "log: Upgrade system-wide not tried: a shell might not start install alone"});
        forget();
    }

    void forget() {
        fs::remove(folder_.path() / "asked");
        fs::remove(folder_.path() / "ran");
        calls_.clear();
    }

    TestSupport::TemporaryFolder folder_;
    Vexora::Recording::CallLog calls_;
    Vexora::Recording::RecordingSystemLog systemLog_{calls_};
    Vexora::PosixProcessLauncher processes_;
    Vexora::QtAdministratorScript script_{
        processes_, systemLog_, {folder_.path() / "pkexec", folder_.path() / "sh"}};
};

TEST_P(QtAdministratorScript, runsTheInstallOfAFolderWithAnyNameThatAShellLeavesAsItIs) {
    for (const char* name :
         {"plain", "My  Disk",   " a ",      "setup [1", "[x",        "a]b",  "{a",
          "a}b",   "{a}",        "~",        "~root",    "a~b",       "!",    "a!b",
          "100%",  "a=b",        "@x",       "#x",       "a #b",      "a, b", "a+b^c",
          "-x",    "...",        "a:b",      "\x01",     "\x7f",      "\r",   "\x1b[0m",
          "\v\f",  "\U0001F389", "日本 بيت", "\xff\xfe", "\x81 \x82", "*",    "a*b",
          "what?", "[ab]",       "[!a] *"}) {
        addInstall(name);
        expectStarted(name);
        fs::remove_all(resources(name));
    }
}

TEST_P(QtAdministratorScript, runsTheInstallOfAFolderWithEveryOtherByteInItsName) {
    std::string name;
    for (int byte = 1; byte < 256; ++byte) {
        if (std::string_view("\t\n$`;|&<>()'\"\\/").find(static_cast<char>(byte)) ==
            std::string_view::npos) {
            name += static_cast<char>(byte);
        }
    }
    addInstall(name);
    expectStarted(name);
}

TEST_P(QtAdministratorScript, asksNobodyWhereAShellWouldReadTheNameOtherwise) {
    for (const char* name :
         {"setup (1)",   "Ann's Files",  "'a'",          "a\"b", "\"a\"",  "R&D",
          "a&echo>hit&", "a;echo>hit;b", "a|echo>hit;b", "a<b",  "a>hit",  "$HOME",
          "$(echo>hit)", "${x:=hit}",    "`echo>hit`",   "a\tb", "a\nb",   "\necho>hit\n",
          "a\\nb",       "a\\rb",        "a\\tb",        "a\\b", "a\\\\b", "a\\ b",
          "a\\\\ b",     "a\\$HOME",     "a\\\"b",       "\\"}) {
        addInstall(name);
        expectRefused(name);
    }
}

TEST_P(QtAdministratorScript, runsTheInstallOfAFolderWithBracesUnlessTheShellExpandsThem) {
    for (const char* name : {"{a,b}", "x{1..2}y"}) {
        addInstall(name);
        if (GetParam().ends_with("bash")) {
            expectRefused(name);
        } else {
            expectStarted(name);
        }
    }
}

TEST_P(QtAdministratorScript, asksNobodyWhereAPatternMatchesAnotherName) {
    const std::pair<std::string, std::string> names[] = {
        {"a*b", "aXXb"}, {"what?", "whats"}, {"[xy] 1", "y 1"}};
    for (const auto& [name, other] : names) {
        addInstall(name);
        // What the other one lacks today, it may have once the password is typed.
        fs::create_directory(resources(other));
        expectRefused(name);
        fs::remove(resources(other));
        expectStarted(name);
    }
}

TEST_P(QtAdministratorScript, givesPkexecItsOwnEnvironmentAndTheCommand) {
    addInstall("My Disk");
    const std::pair<const char*, const char*> hostile[] = {
        {"SHELL", "/nonexistent"}, {"LC_TIME", "en/US"}, {"TERM", "a%b"}, {"COLORTERM", ".."}};
    for (const auto& [name, value] : hostile) {
        ::setenv(name, value, 1);
    }
    EXPECT_TRUE(execute("My Disk"));
    for (const auto& [name, value] : hostile) {
        ::unsetenv(name);
    }
    EXPECT_EQ(written("environment"), "PATH=/usr/sbin:/usr/bin:/sbin:/bin\nLC_ALL=C.UTF-8\n");
    const std::string shell = folder_.path() / "sh";
    EXPECT_EQ(written("asked"),
              "<--disable-internal-agent><" + shell +
                  "><-c><export LC_ALL=C.UTF-8; exec \"$@\" >/dev/null 2>&1><sh><" + shell +
                  "><-c><" + resources("My\\ Disk") + "/install true>");
}

TEST_P(QtAdministratorScript, asksForRunInstallWithTheLineAloneWhereThereIsOne) {
    const std::string runInstall = folder_.path() / "run-install";
    Vexora::QtAdministratorScript byName{
        processes_, systemLog_, {folder_.path() / "pkexec", folder_.path() / "sh", runInstall}};
    for (const int status : {0, 64}) {
        writeProgram("run-install", "exit " + std::to_string(status));
        EXPECT_EQ(byName.execute(administratorScriptSource("/My Disk")), status == 0);
        EXPECT_EQ(written("asked"),
                  "<--disable-internal-agent><" + runInstall + "></My\\ Disk/install true>");
    }
    forget();
    EXPECT_FALSE(byName.execute(administratorScriptSource("/R&D")));
    EXPECT_EQ(written("asked"), "");
}

TEST_P(QtAdministratorScript, onlyTheWordsOfPkexecReachOurErrorStream) {
    addInstall("plain", "echo noise; echo noise >&2");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_TRUE(execute("plain"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "pkexec says\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_P(QtAdministratorScript, failsWithTheInstallAndWithoutPkexec) {
    addInstall("plain", "exit 3");
    EXPECT_FALSE(execute("plain"));
    EXPECT_NE(written("ran"), "");
    forget();
    fs::remove(folder_.path() / "pkexec");
    EXPECT_FALSE(execute("plain"));
    EXPECT_EQ(written("ran"), "");
    EXPECT_EQ(calls_.lines(), Vexora::Recording::Lines{});
}

TEST_P(QtAdministratorScript, runsNothingForAnyOtherSource) {
    for (const std::string& source : {scriptWith("true"), scriptWith("/bin/true"), std::string(),
                                      std::string("do shell script \"true\"")}) {
        EXPECT_FALSE(script_.execute(source));
    }
    EXPECT_EQ(written("asked"), "");
}

INSTANTIATE_TEST_SUITE_P(EveryShell, QtAdministratorScript, testing::ValuesIn(shells()),
                         [](const auto& shell) {
                             return fs::path(shell.param).filename().string();
                         });

} // namespace QtTest
