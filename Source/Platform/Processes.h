// Starting other programs. No shell is involved: every argument reaches the program as it is.
// Any thread.
#pragma once

#include "Platform/FileSystem.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Vexora {

/// A program that was started, for one thread at a time. Destroying it neither ends nor awaits the
/// program.
class Process {
public:
    virtual ~Process() = default;

    /// True until the program has ended.
    virtual bool isRunning() = 0;

    /// The exit status (0 to 255), or the number of the signal that ended the program; -1 while it
    /// runs and when its status is lost.
    virtual std::int32_t terminationStatus() = 0;
};

/// Starts programs.
class ProcessLauncher {
public:
    virtual ~ProcessLauncher() = default;

    /// Starts the program with exactly these arguments and returns at once. Its standard input is
    /// empty; it inherits no other descriptor than the three standard streams.
    ///
    /// \param launchPath absolute path of the program, also its zeroth argument.
    /// \param arguments the arguments after the zeroth.
    /// \param output takes standard output and standard error from its current position; null
    /// leaves both as ours. \throws std::system_error when the program cannot be started.
    virtual std::unique_ptr<Process> launch(const std::string& launchPath,
                                            const std::vector<std::string>& arguments,
                                            const FileHandle* output) = 0;
};

} // namespace Vexora
