#include "Platform/Posix/ProcessLauncher.h"

#include "Platform/Posix/Descriptor.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <system_error>

extern char** environ;

namespace Vexora {

namespace {

/// Throws what launchProcess promises unless the error number is 0.
void check(int error, const std::string& program) {
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), "Cannot start " + program);
    }
}

/// The standard streams of the new program; it gets no other descriptor.
class FileActions {
public:
    explicit FileActions(const std::string& program) : program_(program) {
        check(::posix_spawn_file_actions_init(&actions_), program_);
    }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    ~FileActions() { ::posix_spawn_file_actions_destroy(&actions_); }

    const posix_spawn_file_actions_t* get() const { return &actions_; }

    /// \param output a descriptor behind the standard streams, or none to leave ours.
    void setStreams(const PosixDescriptor& output) {
        check(::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0),
              program_);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
            if (output.isOpen()) {
                check(::posix_spawn_file_actions_adddup2(&actions_, output.value(), stream),
                      program_);
            } else {
                keepStream(stream);
            }
        }
#ifndef __APPLE__
        check(::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1), program_);
#endif
    }

private:
    /// Passes our stream on. A closed one stays closed, and so does one whose number belongs to
    /// something that is to be closed in other programs.
    void keepStream([[maybe_unused]] int stream) {
#ifdef __APPLE__
        const int flags = ::fcntl(stream, F_GETFD);
        if (flags >= 0 && (flags & FD_CLOEXEC) == 0) {
            check(::posix_spawn_file_actions_addinherit_np(&actions_, stream), program_);
        }
#endif
    }

    const std::string& program_;
    posix_spawn_file_actions_t actions_;
};

#ifdef __APPLE__
constexpr short closeOthers = POSIX_SPAWN_CLOEXEC_DEFAULT;
#else
constexpr short closeOthers = 0;
#endif

/// The signals of the new program: none blocked, none ignored, none from our terminal.
class Attributes {
public:
    explicit Attributes(const std::string& program) {
        check(::posix_spawnattr_init(&attributes_), program);
        // Without a scope in front: some systems make macros of these.
        sigset_t none;
        sigemptyset(&none);
        sigset_t all;
        sigfillset(&all);
        sigdelset(&all, SIGKILL);
        sigdelset(&all, SIGSTOP);
        // These only store a value and fail for unknown flags alone.
        ::posix_spawnattr_setsigmask(&attributes_, &none);
        ::posix_spawnattr_setsigdefault(&attributes_, &all);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                                     POSIX_SPAWN_SETSID | closeOthers);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { ::posix_spawnattr_destroy(&attributes_); }

    const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_;
};

/// The null-terminated vector that the system takes; it points into the given strings.
std::vector<char*> nullTerminated(const std::vector<std::string>& strings,
                                  const std::string& program) {
    std::vector<char*> vector;
    vector.reserve(strings.size() + 1);
    for (const std::string& string : strings) {
        // The system would cut the string at a zero byte.
        check(string.find('\0') == std::string::npos ? 0 : EINVAL, program);
        vector.push_back(const_cast<char*>(string.c_str()));
    }
    vector.push_back(nullptr);
    return vector;
}

} // namespace

bool PosixProcess::isRunning() {
    collectStatus(WNOHANG);
    return !ended_;
}

std::int32_t PosixProcess::terminationStatus() {
    collectStatus(WNOHANG);
    return status_;
}

std::int32_t PosixProcess::waitUntilExit() {
    collectStatus(0);
    return status_;
}

void PosixProcess::collectStatus(int waitOptions) {
    if (ended_) {
        // Another child may have the number by now.
        return;
    }
    int status = 0;
    pid_t found = 0;
    do {
        found = ::waitpid(identifier_, &status, waitOptions);
    } while (found < 0 && errno == EINTR);
    ended_ = found != 0;
    if (found == identifier_) {
        status_ = WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
    }
}

PosixProcessLauncher::PosixProcessLauncher() {
    struct sigaction action = {};
    ::sigaction(SIGCHLD, nullptr, &action);
    if (action.sa_handler == SIG_IGN) {
        ::signal(SIGCHLD, SIG_DFL);
    }
}

std::unique_ptr<Process> PosixProcessLauncher::launch(const std::string& launchPath,
                                                      const std::vector<std::string>& arguments,
                                                      const FileHandle* output) {
    return launchProcess(launchPath, arguments, output);
}

std::unique_ptr<PosixProcess> PosixProcessLauncher::launchProcess(
    const std::string& launchPath, const std::vector<std::string>& arguments,
    const FileHandle* output, const std::vector<std::string>* environment) {
    std::vector<char*> vector = nullTerminated(arguments, launchPath);
    vector.insert(vector.begin(), const_cast<char*>(launchPath.c_str()));
    std::vector<char*> variables;
    if (environment != nullptr) {
        variables = nullTerminated(*environment, launchPath);
    }
    // Behind the standard streams no step below can overwrite the descriptor that a later one
    // needs.
    PosixDescriptor descriptor;
    if (output != nullptr) {
        descriptor = duplicateBehindStreams(output->fileDescriptor());
        check(descriptor.isOpen() ? 0 : errno, launchPath);
    }
    FileActions actions(launchPath);
    actions.setStreams(descriptor);
    const Attributes attributes(launchPath);
    pid_t identifier = 0;
    check(::posix_spawn(&identifier, launchPath.c_str(), actions.get(), attributes.get(),
                        vector.data(), environment != nullptr ? variables.data() : environ),
          launchPath);
    return std::make_unique<PosixProcess>(identifier);
}

} // namespace Vexora
