#include "Platform/Posix/ProcessLauncher.h"

#include "Platform/Posix/Descriptor.h"
#include "Platform/Posix/FileSystem.h"
#include "Support/TemporaryFolder.h"
#include "Support/WaitFor.h"

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <system_error>
#include <thread>

namespace fs = std::filesystem;
using TestSupport::waitFor;
using Vexora::PosixProcess;

namespace {

const std::string helper = PROCESS_HELPER;
const std::string nohup = "/usr/bin/nohup";

using Arguments = std::vector<std::string>;

class PosixProcessLauncher : public testing::Test {
protected:
    /// Starts the program with the log file, which is created if missing, as its output.
    std::unique_ptr<PosixProcess> start(const std::string& program, const Arguments& arguments) {
        if (!files.fileExistsAtPath(logPath)) {
            files.createFileAtPath(logPath);
        }
        const auto handle = files.fileHandleForUpdatingAtPath(logPath);
        EXPECT_NE(handle, nullptr);
        return launcher.launchProcess(program, arguments, handle.get());
    }

    /// Runs the program to its end with the log file as its output; returns its status.
    std::int32_t run(const std::string& program, const Arguments& arguments) {
        return start(program, arguments)->waitUntilExit();
    }

    /// The helper program's log after a run with these arguments.
    std::string outputOf(const Arguments& arguments) {
        EXPECT_EQ(run(helper, arguments), 0);
        return log();
    }

    std::string log() const { return folder.read("install.log"); }

    /// Checks what the launcher says about a program that cannot be started, which leaves no child.
    void expectFailure(const std::string& program, const Arguments& arguments, int reason) {
        try {
            launcher.launchProcess(program, arguments, nullptr);
            ADD_FAILURE() << program << " was started";
        } catch (const std::system_error& error) {
            EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
            EXPECT_EQ(errno, ECHILD);
            EXPECT_EQ(error.code(), std::error_code(reason, std::generic_category()));
            EXPECT_EQ(std::string(error.what()),
                      "Cannot start " + program + ": " + std::strerror(reason));
        }
    }

    std::string writeProgram(const std::string& name, const std::string& content, int mode) {
        const fs::path path = folder.write(name, content);
        fs::permissions(path, fs::perms(mode));
        return path;
    }

    TestSupport::TemporaryFolder folder;
    std::string logPath = folder.path() / "install.log";
    Vexora::PosixFileSystem files;
    Vexora::PosixProcessLauncher launcher;
};

} // namespace

TEST_F(PosixProcessLauncher, argumentsReachTheProgramAsTheyAre) {
    EXPECT_EQ(outputOf({}), "0\n");
    const Arguments arguments = {"a b",  "",   "&;", "wait $!",   "\"'`$HOME\\",
                                 "*?[]", "\n", "-x", "J\u00f8rn", "\xFF\xFE"};
    EXPECT_EQ(outputOf(arguments), "10\n3:a b\n0:\n2:&;\n7:wait $!\n9:\"'`$HOME\\\n4:*?[]\n1:\n\n"
                                   "2:-x\n5:J\u00f8rn\n2:\xFF\xFE\n");
}

TEST_F(PosixProcessLauncher, theZerothArgumentIsTheLaunchPath) {
    const std::string path = folder.path() / "a \"link\" \u00fc";
    fs::create_symlink("/bin/sh", path);
    EXPECT_EQ(run(path, {"-c", "printf '%s|' \"$0\""}), 0);
    EXPECT_EQ(log(), path + "|");
}

TEST_F(PosixProcessLauncher, argumentsPassThroughNohup) {
    EXPECT_EQ(run(nohup, {helper, "&;", "wait $!"}), 0);
    EXPECT_EQ(log(), "2\n2:&;\n7:wait $!\n");
}

TEST_F(PosixProcessLauncher, startsProgramsFromStrangePaths) {
    const fs::path copy = folder.path() / "a \u00fc \u65e5\u672c/it's \"$here\"\\ &;/install";
    fs::create_directories(copy.parent_path());
    fs::copy_file(helper, copy);
    EXPECT_EQ(run(copy, {"&;"}), 0);
    EXPECT_EQ(log(), "1\n2:&;\n");
    EXPECT_EQ(run(nohup, {copy, "exit", "30"}), 30);
}

TEST_F(PosixProcessLauncher, outputGoesOverTheLogFromItsFirstByteAndTheTailSurvives) {
    folder.write("install.log", "an earlier and much longer log\n");
    EXPECT_EQ(run(nohup, {helper, "print", "NEW OUTPUT"}), 0);
    EXPECT_EQ(log(), "NEW OUTPUT and much longer log\n");
}

TEST_F(PosixProcessLauncher, outputBeginsAtTheHandlesPositionAndMovesIt) {
    folder.write("install.log", "first ");
    const auto handle = files.fileHandleForWritingAtPath(logPath);
    handle->seekToEndOfFile();
    EXPECT_EQ(launcher.launchProcess(helper, {"print", "second "}, handle.get())->waitUntilExit(),
              0);
    handle->writeData("third");
    EXPECT_EQ(log(), "first second third");
}

TEST_F(PosixProcessLauncher, bothStreamsShareOnePosition) {
    EXPECT_EQ(outputOf({"streams"}), "out1\nerr1\nout2\nerr2\n");
}

TEST_F(PosixProcessLauncher, withoutAnOutputTheProgramTakesOurStreams) {
    EXPECT_EQ(outputOf({"launch", "", "none", "", "streams"}), "out1\nerr1\nout2\nerr2\n");
}

TEST_F(PosixProcessLauncher, everyExitStatusArrives) {
    for (int status = 0; status <= 255; ++status) {
        const auto process = launcher.launch(helper, {"exit", std::to_string(status)}, nullptr);
        ASSERT_TRUE(waitFor([&] { return !process->isRunning(); }));
        EXPECT_EQ(process->terminationStatus(), status);
    }
}

TEST_F(PosixProcessLauncher, theNumberOfTheSignalIsTheStatus) {
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGILL, SIGABRT, SIGFPE, SIGKILL, SIGUSR1,
                             SIGSEGV, SIGPIPE, SIGALRM, SIGTERM}) {
        EXPECT_EQ(run(helper, {"signal", std::to_string(number)}), number);
    }
    EXPECT_EQ(run(nohup, {helper, "signal", std::to_string(SIGTERM)}), SIGTERM);
}

TEST_F(PosixProcessLauncher, aProgramRunsUntilItEnds) {
    const std::string file = folder.path() / "go on";
    const auto process = start(helper, {"wait-for", file});
    EXPECT_TRUE(process->isRunning());
    EXPECT_EQ(process->terminationStatus(), -1);
    folder.write("go on", "");
    EXPECT_TRUE(waitFor([&] { return !process->isRunning(); }));
    EXPECT_EQ(log(), "found\n");
}

TEST_F(PosixProcessLauncher, theStatusIsKept) {
    const auto process = start(helper, {"exit", "7"});
    EXPECT_EQ(process->waitUntilExit(), 7);
    for (int time = 0; time < 3; ++time) {
        EXPECT_FALSE(process->isRunning());
        EXPECT_EQ(process->terminationStatus(), 7);
        EXPECT_EQ(process->waitUntilExit(), 7);
    }
}

TEST_F(PosixProcessLauncher, aStoppedProgramIsStillRunning) {
    const auto process = start(helper, {"signal", std::to_string(SIGSTOP)});
    ASSERT_TRUE(waitFor([&] { return log().ends_with('\n'); }));
    const auto identifier = static_cast<id_t>(std::stoi(log()));
    siginfo_t information{};
    ASSERT_EQ(::waitid(P_PID, identifier, &information, WSTOPPED | WNOWAIT), 0);
    EXPECT_TRUE(process->isRunning());
    EXPECT_EQ(process->terminationStatus(), -1);
    ASSERT_EQ(::kill(static_cast<pid_t>(identifier), SIGCONT), 0);
    EXPECT_EQ(process->waitUntilExit(), 0);
}

TEST_F(PosixProcessLauncher, processesAreToldApart) {
    const auto waiting = start(helper, {"wait-for", folder.path() / "go on"});
    const auto ended = start(helper, {"exit", "3"});
    siginfo_t information{};
    ASSERT_EQ(::waitid(P_ALL, 0, &information, WEXITED | WNOWAIT), 0);
    EXPECT_TRUE(waiting->isRunning());
    EXPECT_EQ(ended->waitUntilExit(), 3);
    EXPECT_TRUE(waiting->isRunning());
    folder.write("go on", "");
    EXPECT_EQ(waiting->waitUntilExit(), 0);
}

TEST_F(PosixProcessLauncher, aProgramOutlivesItsProcessObject) {
    start(nohup, {helper, "wait-for", folder.path() / "go on"}).reset();
    EXPECT_EQ(log(), "");
    folder.write("go on", "");
    EXPECT_TRUE(waitFor([&] { return log() == "found\n"; }));
    EXPECT_GT(::waitpid(-1, nullptr, 0), 0);
}

TEST_F(PosixProcessLauncher, aStatusTakenByOthersIsNotTakenForSuccess) {
    const auto process = start(helper, {"exit", "0"});
    ASSERT_GT(::waitpid(-1, nullptr, 0), 0);
    EXPECT_FALSE(process->isRunning());
    EXPECT_EQ(process->terminationStatus(), -1);
}

TEST_F(PosixProcessLauncher, statusesArriveAlthoughTheSystemWasToldToForgetThem) {
    ::signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(Vexora::PosixProcessLauncher()
                  .launchProcess(helper, {"exit", "5"}, nullptr)
                  ->waitUntilExit(),
              5);
    ::signal(SIGCHLD, SIG_DFL);
}

TEST_F(PosixProcessLauncher, aProgramThatCannotBeStartedIsAnError) {
    const std::pair<std::string, int> programs[] = {
        {folder.path() / "miss ing", ENOENT},
        {"", ENOENT},
        {"nohup", ENOENT},
        {writeProgram("install", "#!/bin/sh\n", 0644), EACCES},
        {folder.path(), EACCES},
        {writeProgram("file", "", 0755) + "/install", ENOTDIR},
        {folder.path() / std::string(300, 'x'), ENAMETOOLONG},
        {writeProgram("text", "exit 0\n", 0755), ENOEXEC},
        {writeProgram("script", "#!/missing/interpreter\n", 0755), ENOENT}};
    for (const auto& [program, reason] : programs) {
        expectFailure(program, {}, reason);
    }
}

TEST_F(PosixProcessLauncher, argumentsThatCannotArriveWholeAreAnError) {
    expectFailure(helper, {std::string(1 << 20, 'x')}, E2BIG);
    expectFailure(helper, {std::string("a\0b", 3)}, EINVAL);
}

TEST_F(PosixProcessLauncher, aFailedStartLeavesNoDescriptorOpen) {
    folder.write("install.log", "");
    const auto handle = files.fileHandleForUpdatingAtPath(logPath);
    const auto openDescriptors = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    const auto before = openDescriptors();
    EXPECT_THROW(launcher.launch("/missing", {}, handle.get()), std::system_error);
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(log(), "");
}

TEST_F(PosixProcessLauncher, nohupTellsByItsStatusThatItsTargetIsMissingOrNotExecutable) {
    EXPECT_EQ(run(nohup, {folder.path() / "missing", "&;", "wait $!"}), 127);
    EXPECT_EQ(run(nohup, {writeProgram("install", "#!/bin/sh\n", 0644), "&;", "wait $!"}), 126);
}

TEST_F(PosixProcessLauncher, inputIsEmptyAndNoOtherDescriptorIsInherited) {
    std::vector<int> opened = {::open("/dev/null", O_RDONLY), ::open("/dev/zero", O_RDWR)};
    opened.push_back(::fcntl(opened[0], F_DUPFD, 200));
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    opened.insert(opened.end(), {ends[0], ends[1]});
    const std::string expected = "input null\ndescriptors 0 1 2\nsignals\n";
    EXPECT_EQ(outputOf({"inheritance"}), expected);
    EXPECT_EQ(run(nohup, {helper, "launch", "", "none", "", "inheritance"}), 0);
    EXPECT_EQ(log(), expected);
    for (const int descriptor : opened) {
        EXPECT_EQ(::close(descriptor), 0);
    }
}

TEST_F(PosixProcessLauncher, theEnvironmentIsTheGivenOneOrOurs) {
    const std::string program = "/usr/bin/env";
    const auto variablesOf = [&](const Arguments* given) {
        folder.write("install.log", "");
        const auto handle = files.fileHandleForUpdatingAtPath(logPath);
        launcher.launchProcess(program, {}, handle.get(), given)->waitUntilExit();
        return log();
    };
    ::setenv("VEXORA_TEST", "ours", 1);
    EXPECT_NE(variablesOf(nullptr).find("VEXORA_TEST=ours\n"), std::string::npos);
    const Arguments given = {"A=1", "B=not so short that a copy of it would be in place \xFF"};
    EXPECT_EQ(variablesOf(&given), given[0] + "\n" + given[1] + "\n");
    const Arguments none;
    EXPECT_EQ(variablesOf(&none), "");
    ::unsetenv("VEXORA_TEST");
    const Arguments cut = {std::string("A=\0B", 4)};
    EXPECT_THROW(launcher.launchProcess(program, {}, nullptr, &cut), std::system_error);
}

TEST_F(PosixProcessLauncher, noSignalIsBlockedOrIgnored) {
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGTERM);
    ::sigaddset(&blocked, SIGUSR1);
    ::sigprocmask(SIG_BLOCK, &blocked, nullptr);
    constexpr int ignored[] = {SIGINT, SIGPIPE, SIGXFSZ};
    for (const int number : ignored) {
        ::signal(number, SIG_IGN);
    }
    EXPECT_EQ(outputOf({"inheritance"}), "input null\ndescriptors 0 1 2\nsignals\n");
    for (const int number : ignored) {
        ::signal(number, SIG_DFL);
    }
    ::sigprocmask(SIG_UNBLOCK, &blocked, nullptr);
}

TEST_F(PosixProcessLauncher, whatEndsUsFromOurTerminalLeavesTheProgramAlone) {
    const std::pair<int, std::function<void(Vexora::PosixDescriptor&)>> endings[] = {
        {SIGINT, [](auto& terminal) { EXPECT_TRUE(Vexora::writeAll(terminal.value(), "\x03")); }},
        {SIGQUIT, [](auto& terminal) { EXPECT_TRUE(Vexora::writeAll(terminal.value(), "\x1C")); }},
        {SIGHUP, [](auto& terminal) { terminal = {}; }}};
    for (const auto& [number, end] : endings) {
        SCOPED_TRACE(::strsignal(number));
        const std::string name = std::to_string(number);
        Vexora::PosixDescriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY));
        if (!terminal.isOpen()) {
            GTEST_SKIP() << "This system has no pseudo-terminals.";
        }
        ASSERT_EQ(::grantpt(terminal.value()), 0);
        ASSERT_EQ(::unlockpt(terminal.value()), 0);
        const auto process =
            start(helper, {"terminal", ::ptsname(terminal.value()), folder.write(name + ".log", ""),
                           "outlive-terminal", folder.path() / (name + " go on")});
        const auto told = [&] { return folder.read(name + ".log"); };
        ASSERT_TRUE(waitFor([&] { return told() == "own session, no terminal\n"; })) << told();
        end(terminal);
        EXPECT_EQ(process->waitUntilExit(), number);
        folder.write(name + " go on", "");
        EXPECT_TRUE(waitFor([&] { return told() == "own session, no terminal\nfound\n"; }));
    }
}

TEST_F(PosixProcessLauncher, theStandardStreamsAreRightAlthoughOursAreClosed) {
    folder.write("inner.log", "");
    const std::string innerLog = folder.path() / "inner.log";
    for (const char* kind : {"handle", "plain"}) {
        for (const char* closed : {"0", "1", "2", "01", "02", "12", "012"}) {
            SCOPED_TRACE(std::string(kind) + " with closed " + closed);
            folder.write("inner.log", "");
            EXPECT_EQ(run(helper, {"launch", closed, kind, innerLog, "inheritance"}), 0);
            EXPECT_EQ(folder.read("inner.log"), "input null\ndescriptors 0 1 2\nsignals\n");
            EXPECT_EQ(run(helper, {"launch", closed, kind, innerLog, "streams"}), 0);
            EXPECT_TRUE(folder.read("inner.log").starts_with("out1\nerr1\nout2\nerr2\n"));
        }
    }
    EXPECT_EQ(log(), "");
}

TEST_F(PosixProcessLauncher, aClosedStreamStaysClosedWithoutAnOutput) {
    EXPECT_EQ(outputOf({"launch", "02", "none", "", "inheritance"}),
              "input null\ndescriptors 0 1\nsignals\n");
}

TEST_F(PosixProcessLauncher, startsAndAwaitsProgramsFromManyThreads) {
    std::vector<std::thread> threads;
    std::vector<int> statuses(8, -1);
    for (std::size_t index = 0; index < statuses.size(); ++index) {
        threads.emplace_back([this, index, &status = statuses[index]] {
            const auto process = launcher.launch(helper, {"exit", std::to_string(index)}, nullptr);
            if (waitFor([&] { return !process->isRunning(); })) {
                status = process->terminationStatus();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(statuses, std::vector({0, 1, 2, 3, 4, 5, 6, 7}));
}
