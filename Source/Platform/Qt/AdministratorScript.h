// Runs the one kind of script that the application makes, a shell command as administrator, by way
// of pkexec. Any thread.
#pragma once

#include "Platform/Posix/ProcessLauncher.h"
#include "Platform/Services.h"

#include <optional>
#include <string>

namespace Vexora {

class QtAdministratorScript : public AdministratorScript {
public:
    /// Both outlive the object.
    QtAdministratorScript(PosixProcessLauncher& processes, FileSystem& files)
        : processes_(processes), files_(files) {}

    /// Waits for the command, the desktop's password prompt included. Its output is thrown away.
    /// Without pkexec, or when the source is no such script, nothing runs and the result is false.
    bool execute(const std::string& source) override;

private:
    PosixProcessLauncher& processes_;
    FileSystem& files_;
};

/// The command in `do shell script "COMMAND" with administrator privileges`, with the escapes of
/// the literal resolved; nothing for any other source, a command with a quote of its own included.
std::optional<std::string> shellCommandOf(const std::string& source);

} // namespace Vexora
