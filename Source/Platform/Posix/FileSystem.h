// Files over POSIX calls, the same on Linux and macOS.
// The class has no state: every path goes to the system as it is.
#pragma once

#include "Platform/FileSystem.h"

namespace Vexora {

/// All bytes of a file; nothing when it cannot be read or is a device. Any thread.
std::optional<std::string> contentOfFile(const std::string& path);

/// Any thread.
class PosixFileSystem final : public FileSystem {
public:
    /// Follows symbolic links: one that leads nowhere does not exist.
    bool fileExistsAtPath(const std::string& path) override;

    /// Folders get the mode 0777 less the umask. An existing folder is no failure; anything else
    /// in the way is.
    std::error_code createDirectoryAtPath(const std::string& path) override;

    /// A new file gets the mode 0666 less the umask.
    bool createFileAtPath(const std::string& path) override;

    std::unique_ptr<FileHandle> fileHandleForWritingAtPath(const std::string& path) override;
    std::unique_ptr<FileHandle> fileHandleForUpdatingAtPath(const std::string& path) override;
    std::optional<std::string> utf16TextOfFile(const std::string& path) override;
};

} // namespace Vexora
