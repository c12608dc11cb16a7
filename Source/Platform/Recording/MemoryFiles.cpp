#include "Platform/Recording/MemoryFiles.h"

namespace Vexora::Recording {
namespace {

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

} // namespace

MemoryHandle::MemoryHandle(CallLog& calls, std::string path, std::shared_ptr<MemoryFile> file,
                           int descriptor)
    : calls_(calls), path_(std::move(path)), file_(std::move(file)), descriptor_(descriptor) {}

MemoryHandle::~MemoryHandle() {
    calls_.add("close " + path_);
}

void MemoryHandle::seekToEndOfFile() {
    calls_.add("seekToEndOfFile " + path_);
    const std::lock_guard lock(file_->mutex);
    position_ = file_->bytes.size();
}

void MemoryHandle::writeData(const std::string& bytes) {
    calls_.add("writeData " + path_ + " at " + std::to_string(position_) + ": " + bytes);
    overwrite(bytes);
}

void MemoryHandle::writeAsProgram(const std::string& bytes) const {
    overwrite(bytes);
}

void MemoryHandle::overwrite(const std::string& bytes) const {
    const std::lock_guard lock(file_->mutex);
    if (file_->bytes.size() < position_ + bytes.size()) {
        file_->bytes.resize(position_ + bytes.size());
    }
    file_->bytes.replace(position_, bytes.size(), bytes);
    position_ += bytes.size();
}

MemoryFiles::MemoryFiles(CallLog& calls) : calls_(calls) {
    addFile("/dev/null", "");
}

bool MemoryFiles::fileExistsAtPath(const std::string& path) {
    const std::lock_guard lock(mutex_);
    return exists(path);
}

bool MemoryFiles::exists(const std::string& path) const {
    return folders_.contains(path) || files_.contains(path) || utf16Texts_.contains(path);
}

std::error_code MemoryFiles::createDirectoryAtPath(const std::string& path) {
    calls_.add("createDirectory " + path);
    const std::lock_guard lock(mutex_);
    if (refusedFolders.contains(path)) {
        return std::make_error_code(std::errc::permission_denied);
    }
    insertFolder(path);
    return {};
}

bool MemoryFiles::createFileAtPath(const std::string& path) {
    calls_.add("createFile " + path);
    const std::lock_guard lock(mutex_);
    if (refusedFiles.contains(path) || folders_.contains(path) ||
        !folders_.contains(folderOf(path))) {
        return false;
    }
    files_.try_emplace(path, std::make_shared<MemoryFile>());
    return true;
}

std::unique_ptr<FileHandle> MemoryFiles::fileHandleForWritingAtPath(const std::string& path) {
    return open("openForWriting ", path);
}

std::unique_ptr<FileHandle> MemoryFiles::fileHandleForUpdatingAtPath(const std::string& path) {
    return open("openForUpdating ", path);
}

std::unique_ptr<FileHandle> MemoryFiles::open(const std::string& verb, const std::string& path) {
    calls_.add(verb + path);
    const std::lock_guard lock(mutex_);
    const auto found = files_.find(path);
    if (found == files_.end() || lockedFiles.contains(path)) {
        return nullptr;
    }
    return std::make_unique<MemoryHandle>(calls_, path, found->second, nextDescriptor_++);
}

std::optional<std::string> MemoryFiles::utf16TextOfFile(const std::string& path) {
    calls_.add("utf16TextOfFile " + path);
    const std::lock_guard lock(mutex_);
    const auto found = utf16Texts_.find(path);
    if (found == utf16Texts_.end() || lockedFiles.contains(path)) {
        return std::nullopt;
    }
    return found->second;
}

void MemoryFiles::addFolder(const std::string& path) {
    const std::lock_guard lock(mutex_);
    insertFolder(path);
}

void MemoryFiles::insertFolder(const std::string& path) {
    for (std::string folder = path; !folder.empty(); folder = folderOf(folder)) {
        folders_.insert(folder);
    }
}

void MemoryFiles::addFile(const std::string& path, const std::string& bytes) {
    const std::lock_guard lock(mutex_);
    insertFolder(folderOf(path));
    files_[path] = std::make_shared<MemoryFile>();
    files_[path]->bytes = bytes;
}

void MemoryFiles::addUtf16Text(const std::string& path, const std::string& text) {
    const std::lock_guard lock(mutex_);
    utf16Texts_[path] = text;
}

bool MemoryFiles::isFolder(const std::string& path) const {
    const std::lock_guard lock(mutex_);
    return folders_.contains(path);
}

std::optional<std::string> MemoryFiles::content(const std::string& path) const {
    const std::lock_guard lock(mutex_);
    const auto found = files_.find(path);
    if (found == files_.end()) {
        return std::nullopt;
    }
    const std::lock_guard fileLock(found->second->mutex);
    return found->second->bytes;
}

} // namespace Vexora::Recording
