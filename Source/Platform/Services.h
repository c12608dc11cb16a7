// What the application asks of the desktop and the system around it, one small class per service.
#pragma once

#include <string>

namespace Vexora {

/// Where the process runs and for whom. Any thread.
class Environment {
public:
    virtual ~Environment() = default;

    /// The user's home directory, without a trailing slash; empty when that is the root folder.
    virtual std::string homeDirectory() = 0;

    /// The absolute path of the resource directory, without a trailing slash.
    /// \throws std::system_error when the system does not tell where the program lies.
    virtual std::string resourcePath() = 0;

    /// The identifier of the current locale, such as "en_US", in ASCII; may be shorter than two
    /// characters.
    virtual std::string localeIdentifier() = 0;
};

/// Runs scripts that may ask for administrator rights. Any thread.
class AdministratorScript {
public:
    virtual ~AdministratorScript() = default;

    /// Compiles and runs AppleScript source and waits for its end, a password prompt included.
    /// \return true when it ran without an error; a refusal is an error.
    virtual bool execute(const std::string& source) = 0;
};

/// The desktop's file viewer and browser. Main thread; what becomes of a request is not told.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Reveals a file in the file viewer.
    virtual void selectFile(const std::string& path) = 0;

    /// Opens a web address in the default browser.
    virtual void openUrl(const std::string& address) = 0;
};

/// The system's diagnostic log. Any thread.
class SystemLog {
public:
    virtual ~SystemLog() = default;

    /// Writes one line; the line end is added.
    virtual void log(const std::string& line) = 0;
};

} // namespace Vexora
