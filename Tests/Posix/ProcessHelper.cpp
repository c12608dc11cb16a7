// The program that the launcher's tests start. Its first argument says what it does; with any other
// one it prints the arguments that it got.

#include "Platform/Posix/Environment.h"
#include "Platform/Posix/FileSystem.h"
#include "Platform/Posix/ProcessLauncher.h"
#include "Platform/Posix/Start.h"
#include "Platform/Posix/SystemLog.h"
#include "Support/WaitFor.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <exception>
#include <set>
#include <string>
#include <vector>

namespace {

using Arguments = std::vector<std::string>;

void write(int descriptor, const std::string& text) {
    if (::write(descriptor, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
        ::_exit(97);
    }
}

/// The number of arguments, then each with its length in bytes.
int printArguments(const Arguments& arguments) {
    std::string text = std::to_string(arguments.size()) + '\n';
    for (const std::string& argument : arguments) {
        text += std::to_string(argument.size()) + ':' + argument + '\n';
    }
    write(STDOUT_FILENO, text);
    return 0;
}

int writeToBothStreams() {
    for (const char* number : {"1", "2"}) {
        write(STDOUT_FILENO, std::string("out") + number + '\n');
        write(STDERR_FILENO, std::string("err") + number + '\n');
    }
    return 0;
}

void leaveNoCoreFile() {
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
}

/// Prints its process number, then sends itself the signal.
int sendSignal(int signalNumber) {
    leaveNoCoreFile();
    write(STDOUT_FILENO, std::to_string(::getpid()) + '\n');
    if (signalNumber != SIGKILL && signalNumber != SIGSTOP) {
        ::signal(signalNumber, SIG_DFL);
    }
    ::raise(signalNumber);
    return 0;
}

std::string inputKind() {
    struct stat input = {};
    struct stat null = {};
    if (::fstat(STDIN_FILENO, &input) != 0 || ::stat("/dev/null", &null) != 0) {
        return "closed";
    }
    char byte = 0;
    const bool empty = ::read(STDIN_FILENO, &byte, 1) == 0;
    return empty && S_ISCHR(input.st_mode) && input.st_rdev == null.st_rdev ? "null" : "other";
}

std::string openDescriptors() {
    DIR* const folder = ::opendir("/proc/self/fd");
    std::set<int> found;
    while (const dirent* entry = ::readdir(folder)) {
        if (entry->d_name[0] != '.') {
            found.insert(std::stoi(entry->d_name));
        }
    }
    found.erase(::dirfd(folder));
    ::closedir(folder);
    std::string text;
    for (const int descriptor : found) {
        text += ' ' + std::to_string(descriptor);
    }
    return text;
}

std::string blockedAndIgnoredSignals() {
    sigset_t blocked;
    ::sigprocmask(SIG_BLOCK, nullptr, &blocked);
    std::string text;
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action = {};
        const bool ignored =
            ::sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
        if (ignored || ::sigismember(&blocked, number) == 1) {
            text += ' ' + std::to_string(number);
        }
    }
    return text;
}

int printInheritance() {
    write(STDOUT_FILENO, "input " + inputKind() + "\ndescriptors" + openDescriptors() +
                             "\nsignals" + blockedAndIgnoredSignals() + '\n');
    return 0;
}

int waitForFile(const std::string& path) {
    const bool found = TestSupport::waitFor([&] { return ::access(path.c_str(), F_OK) == 0; },
                                            std::chrono::seconds(60));
    write(STDOUT_FILENO, "found\n");
    return found ? 0 : 96;
}

/// A handle on whatever descriptor the system gave, the standard ones included.
class PlainHandle final : public Vexora::FileHandle {
public:
    explicit PlainHandle(const std::string& path) : descriptor_(::open(path.c_str(), O_RDWR)) {}
    void seekToEndOfFile() override {}
    void writeData(const std::string& /*bytes*/) override {}
    int fileDescriptor() const override { return descriptor_; }

private:
    int descriptor_;
};

std::unique_ptr<Vexora::FileHandle> openLog(const std::string& kind, const std::string& path) {
    if (kind == "plain") {
        return std::make_unique<PlainHandle>(path);
    }
    return kind == "handle" ? Vexora::PosixFileSystem().fileHandleForUpdatingAtPath(path) : nullptr;
}

/// launch CLOSED KIND LOG ARGUMENT...: closes the descriptors whose digits CLOSED holds, opens the
/// log as KIND says ("plain", "handle", "none"), and starts this program with the arguments.
int launchAgain(const std::string& program, const Arguments& arguments) {
    for (const char digit : arguments.at(1)) {
        ::close(digit - '0');
    }
    const auto log = openLog(arguments.at(2), arguments.at(3));
    return Vexora::PosixProcessLauncher()
        .launchProcess(program, Arguments(arguments.begin() + 4, arguments.end()), log.get())
        ->waitUntilExit();
}

/// terminal SLAVE LOG ARGUMENT...: makes the terminal the one that controls this process, then does
/// the same as launch.
int launchInTerminal(const std::string& program, const Arguments& arguments) {
    leaveNoCoreFile();
    // Who leads a session already has no terminal yet.
    ::setsid();
    if (::open(arguments.at(1).c_str(), O_RDWR) < 0 || ::open("/dev/tty", O_RDWR) < 0) {
        return 94;
    }
    Arguments launch = {"launch", "", "handle"};
    launch.insert(launch.end(), arguments.begin() + 2, arguments.end());
    return launchAgain(program, launch);
}

/// Tells of its session and terminal, then waits for the file.
int outliveTerminal(const std::string& path) {
    write(STDOUT_FILENO, ::getsid(0) == ::getpid() ? "own session" : "session of another");
    write(STDOUT_FILENO, ::open("/dev/tty", O_RDWR) < 0 ? ", no terminal\n" : ", a terminal\n");
    return waitForFile(path);
}

/// Logs a line on an error stream that is closed, and on one that nobody reads any more.
int logToNobody() {
    ::signal(SIGPIPE, SIG_DFL);
    Vexora::prepareProcess();
    Vexora::PosixSystemLog log;
    int ends[2];
    if (::pipe(ends) != 0) {
        return 95;
    }
    ::close(ends[0]);
    ::dup2(ends[1], STDERR_FILENO);
    log.log("nobody reads this");
    ::close(STDERR_FILENO);
    log.log("this has no place to go");
    return 0;
}

int run(const std::string& program, const Arguments& arguments) {
    const std::string command = arguments.empty() ? "" : arguments.front();
    if (command == "exit") {
        return std::stoi(arguments.at(1));
    }
    if (command == "print") {
        write(STDOUT_FILENO, arguments.at(1));
        return 0;
    }
    if (command == "streams") {
        return writeToBothStreams();
    }
    if (command == "signal") {
        return sendSignal(std::stoi(arguments.at(1)));
    }
    if (command == "inheritance") {
        return printInheritance();
    }
    if (command == "wait-for") {
        return waitForFile(arguments.at(1));
    }
    if (command == "launch") {
        return launchAgain(program, arguments);
    }
    if (command == "terminal") {
        return launchInTerminal(program, arguments);
    }
    if (command == "outlive-terminal") {
        return outliveTerminal(arguments.at(1));
    }
    if (command == "resource-path") {
        write(STDOUT_FILENO, Vexora::posixResourcePath());
        return 0;
    }
    if (command == "log-to-nobody") {
        return logToNobody();
    }
    return printArguments(arguments);
}

} // namespace

int main(int argumentCount, char** argumentValues) {
    try {
        return run(argumentValues[0],
                   Arguments(argumentValues + 1, argumentValues + argumentCount));
    } catch (const std::exception& error) {
        write(STDERR_FILENO, std::string(error.what()) + '\n');
        return 99;
    }
}
