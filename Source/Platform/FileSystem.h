// Files as the application needs them. Paths are UTF-8 byte strings and are never normalised.
// Any thread; failures are told by what is returned, nothing throws but a lack of memory. Opening
// never waits for another program: what is neither file, folder nor device cannot be opened.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <system_error>

namespace Vexora {

/// An open file; closed with the object.
class FileHandle {
public:
    virtual ~FileHandle() = default;

    /// Moves to the end of the file as it is now.
    virtual void seekToEndOfFile() = 0;

    /// Writes the bytes at the current position; errors are not reported.
    virtual void writeData(const std::string& bytes) = 0;

    /// The system's descriptor of the file, which the handle keeps owning.
    virtual int fileDescriptor() const = 0;
};

/// The file system.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Whether anything, a folder included, exists at the path.
    virtual bool fileExistsAtPath(const std::string& path) = 0;

    /// Creates the folder with all missing folders above it; one that is there already is no error.
    /// \return the error that came back, if any.
    virtual std::error_code createDirectoryAtPath(const std::string& path) = 0;

    /// Creates an empty file with default attributes. One that is there by then, another program's
    /// perhaps, keeps its content. \return whether there is a file that can be written to.
    virtual bool createFileAtPath(const std::string& path) = 0;

    /// Opens an existing file for writing at offset 0 without truncation; null when it cannot be
    /// opened.
    virtual std::unique_ptr<FileHandle> fileHandleForWritingAtPath(const std::string& path) = 0;

    /// Opens an existing file for reading and writing at offset 0 without truncation; null when it
    /// cannot be opened.
    virtual std::unique_ptr<FileHandle> fileHandleForUpdatingAtPath(const std::string& path) = 0;

    /// The whole text of a UTF-16 file that begins with a byte-order mark, as UTF-8 without the
    /// mark. Nothing when the file cannot be read, has no mark or is not valid UTF-16.
    virtual std::optional<std::string> utf16TextOfFile(const std::string& path) = 0;
};

} // namespace Vexora
