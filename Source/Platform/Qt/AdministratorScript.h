// Runs the one kind of script that the application makes, a shell command as administrator, by way
// of pkexec. Any thread.
#pragma once

#include "Platform/Posix/ProcessLauncher.h"
#include "Platform/Services.h"

#include <optional>
#include <string>
#include <utility>

namespace Vexora {

class QtAdministratorScript : public AdministratorScript {
public:
    /// The programs that it runs.
    struct Programs {
        std::string pkexec = "/usr/bin/pkexec";
        std::string shell = "/bin/sh";
        /// What pkexec starts with the line alone, and so asks for by name; empty for the shell.
        std::string runInstall = {};
    };

    /// The first two outlive the object.
    QtAdministratorScript(PosixProcessLauncher& processes, SystemLog& systemLog, Programs programs)
        : processes_(processes), systemLog_(systemLog), programs_(std::move(programs)) {}

    /// Waits for the command, the desktop's password prompt included. Its output is thrown away,
    /// what pkexec itself says goes to our standard error. Without pkexec nothing runs and the
    /// result is false.
    ///
    /// When the source is no such script, or a shell would read its command as anything but one
    /// program with the argument true, nobody is asked: the system log tells, and the result is
    /// false.
    bool execute(const std::string& source) override;

private:
    PosixProcessLauncher& processes_;
    SystemLog& systemLog_;
    Programs programs_;
};

/// The command in `do shell script "COMMAND" with administrator privileges`, with the literal's two
/// backslashes for one resolved; nothing for any other source, a command with a quote of its own or
/// with another escape included.
std::optional<std::string> shellCommandOf(const std::string& source);

} // namespace Vexora
