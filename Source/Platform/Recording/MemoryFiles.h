// Files that exist only in the memory of a test, with a switch for everything that can go wrong.
// Any thread, apart from the switches, which are set before the test acts.
#pragma once

#include "Platform/FileSystem.h"
#include "Platform/Recording/CallLog.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>

namespace Vexora::Recording {

/// The bytes of a file, shared by everyone who has it open.
struct MemoryFile {
    std::mutex mutex;
    std::string bytes;
};

/// An open file. It records every move, every write with its offset, and its closing.
class MemoryHandle : public FileHandle {
public:
    MemoryHandle(CallLog& calls, std::string path, std::shared_ptr<MemoryFile> file,
                 int descriptor);
    MemoryHandle(const MemoryHandle&) = delete;
    MemoryHandle& operator=(const MemoryHandle&) = delete;
    ~MemoryHandle() override;

    void seekToEndOfFile() override;
    void writeData(const std::string& bytes) override;
    int fileDescriptor() const override { return descriptor_; }

    const std::string& path() const { return path_; }

    /// What a program does that was started with this file as its output: its bytes replace those
    /// from the current position on.
    void writeAsProgram(const std::string& bytes) const;

private:
    void overwrite(const std::string& bytes) const;

    CallLog& calls_;
    std::string path_;
    std::shared_ptr<MemoryFile> file_;
    int descriptor_;
    /// Shared with the program, as a descriptor's offset is.
    mutable std::size_t position_ = 0;
};

/// A file system with the root folder, /dev/null and what a test adds.
class MemoryFiles : public FileSystem {
public:
    explicit MemoryFiles(CallLog& calls);

    bool fileExistsAtPath(const std::string& path) override;
    std::error_code createDirectoryAtPath(const std::string& path) override;
    bool createFileAtPath(const std::string& path) override;
    std::unique_ptr<FileHandle> fileHandleForWritingAtPath(const std::string& path) override;
    std::unique_ptr<FileHandle> fileHandleForUpdatingAtPath(const std::string& path) override;
    std::optional<std::string> utf16TextOfFile(const std::string& path) override;

    /// Adds a folder and those above it.
    void addFolder(const std::string& path);

    /// Adds or replaces a file, and the folder that holds it.
    void addFile(const std::string& path, const std::string& bytes);

    /// Adds or replaces a UTF-16 file by the text that it holds.
    void addUtf16Text(const std::string& path, const std::string& text);

    bool isFolder(const std::string& path) const;

    /// The bytes of a file; nothing when there is none.
    std::optional<std::string> content(const std::string& path) const;

    /// Folders that cannot be created.
    std::set<std::string> refusedFolders;
    /// Files that cannot be created.
    std::set<std::string> refusedFiles;
    /// Files that exist, or can be created, but cannot be opened.
    std::set<std::string> lockedFiles;

private:
    std::unique_ptr<FileHandle> open(const std::string& verb, const std::string& path);
    bool exists(const std::string& path) const;
    void insertFolder(const std::string& path);

    CallLog& calls_;
    mutable std::mutex mutex_;
    std::set<std::string> folders_;
    std::map<std::string, std::shared_ptr<MemoryFile>> files_;
    std::map<std::string, std::string> utf16Texts_;
    int nextDescriptor_ = 100;
};

} // namespace Vexora::Recording
