#include "Platform/Posix/FileSystem.h"

#include "Platform/Posix/Descriptor.h"

#include <iconv.h>
#include <sys/stat.h>

#include <array>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace Vexora {

namespace {

class PosixFileHandle final : public FileHandle {
public:
    explicit PosixFileHandle(PosixDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

    void seekToEndOfFile() override { ::lseek(descriptor_.value(), 0, SEEK_END); }
    void writeData(const std::string& bytes) override { writeAll(descriptor_.value(), bytes); }
    int fileDescriptor() const override { return descriptor_.value(); }

private:
    PosixDescriptor descriptor_;
};

std::unique_ptr<FileHandle> openHandle(const std::string& path, int accessMode) {
    PosixDescriptor descriptor = openDescriptor(path, accessMode);
    return descriptor.isOpen() ? std::make_unique<PosixFileHandle>(std::move(descriptor)) : nullptr;
}

/// Converts what follows the byte-order mark of `content`.
std::optional<std::string> utf8FromMarkedUtf16(std::string& content, const char* encoding) {
    const iconv_t converter = ::iconv_open("UTF-8", encoding);
    if (converter == std::bit_cast<iconv_t>(std::intptr_t{-1})) {
        return std::nullopt;
    }
    char* input = content.data() + 2;
    std::size_t inputLeft = content.size() - 2;
    // One 16-bit unit becomes at most three bytes, a pair of surrogates four.
    std::string text(inputLeft / 2 * 3, '\0');
    char* output = text.data();
    std::size_t outputLeft = text.size();
    // Anything but 0 tells of input that is invalid, cut off or not representable.
    const std::size_t result = ::iconv(converter, &input, &inputLeft, &output, &outputLeft);
    ::iconv_close(converter);
    if (result != 0 || inputLeft != 0) {
        return std::nullopt;
    }
    text.resize(text.size() - outputLeft);
    return text;
}

} // namespace

std::optional<std::string> contentOfFile(const std::string& path) {
    const PosixDescriptor descriptor = openDescriptor(path, O_RDONLY);
    struct stat status = {};
    // A device may have no end.
    if (!descriptor.isOpen() || ::fstat(descriptor.value(), &status) != 0 ||
        S_ISCHR(status.st_mode)) {
        return std::nullopt;
    }
    std::string content;
    std::array<char, 65536> chunk;
    while (true) {
        const ssize_t count = ::read(descriptor.value(), chunk.data(), chunk.size());
        if (count > 0) {
            content.append(chunk.data(), static_cast<std::size_t>(count));
        } else if (count == 0) {
            return content;
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
}

bool PosixFileSystem::fileExistsAtPath(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

std::error_code PosixFileSystem::createDirectoryAtPath(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return error;
}

bool PosixFileSystem::createFileAtPath(const std::string& path) {
    return openDescriptor(path, O_WRONLY | O_CREAT,
                          S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH)
        .isOpen();
}

std::unique_ptr<FileHandle> PosixFileSystem::fileHandleForWritingAtPath(const std::string& path) {
    return openHandle(path, O_WRONLY);
}

std::unique_ptr<FileHandle> PosixFileSystem::fileHandleForUpdatingAtPath(const std::string& path) {
    return openHandle(path, O_RDWR);
}

std::optional<std::string> PosixFileSystem::utf16TextOfFile(const std::string& path) {
    std::optional<std::string> content = contentOfFile(path);
    if (!content) {
        return std::nullopt;
    }
    const std::string_view mark = std::string_view(*content).substr(0, 2);
    if (mark == "\xFF\xFE") {
        return utf8FromMarkedUtf16(*content, "UTF-16LE");
    }
    if (mark == "\xFE\xFF") {
        return utf8FromMarkedUtf16(*content, "UTF-16BE");
    }
    return std::nullopt;
}

} // namespace Vexora
