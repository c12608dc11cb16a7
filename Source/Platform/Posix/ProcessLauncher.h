// Starting programs with posix_spawn, the same on Linux and macOS.
// What a program inherits is decided here alone, whatever state this process is in.
#pragma once

#include "Platform/Processes.h"

#include <sys/types.h>

namespace Vexora {

/// A child process. Any thread, one at a time.
class PosixProcess final : public Process {
public:
    /// \param identifier a child of this process that nobody else waits for.
    explicit PosixProcess(pid_t identifier) : identifier_(identifier) {}

    /// A stopped program is still running.
    bool isRunning() override;

    /// As Process tells; -1 while the program is running, and when the system kept no status.
    std::int32_t terminationStatus() override;

    /// Blocks until the program has ended, and returns its terminationStatus.
    std::int32_t waitUntilExit();

private:
    void collectStatus(int waitOptions);

    pid_t identifier_;
    bool ended_ = false;
    std::int32_t status_ = -1;
};

/// Any thread.
class PosixProcessLauncher final : public ProcessLauncher {
public:
    /// Stops this process from ignoring SIGCHLD, which whoever started it may have left behind:
    /// the system then keeps no exit status of its children.
    PosixProcessLauncher();

    std::unique_ptr<Process> launch(const std::string& launchPath,
                                    const std::vector<std::string>& arguments,
                                    const FileHandle* output) override;

    /// The same as launch, with a process that can be waited for. The program starts with no
    /// signal blocked and none ignored, in our working directory. It has a session of its own, so that
    /// neither closing the terminal that we were started from nor Ctrl-C there reaches it.
    ///
    /// \param environment all its variables, each as NAME=VALUE; null passes ours on.
    /// \throws std::system_error when the program cannot be started; its text names the program
    /// and the reason.
    std::unique_ptr<PosixProcess>
    launchProcess(const std::string& launchPath, const std::vector<std::string>& arguments,
                  const FileHandle* output, const std::vector<std::string>* environment = nullptr);
};

} // namespace Vexora
