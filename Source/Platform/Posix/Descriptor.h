// An owned file descriptor, as the files and the process launcher use it. It is closed in programs
// that we start, and never stands in the place of a standard stream.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

namespace Vexora {

/// Closes its descriptor with itself. May hold none.
class PosixDescriptor {
public:
    PosixDescriptor() = default;
    explicit PosixDescriptor(int value) : value_(value) {}
    PosixDescriptor(PosixDescriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    PosixDescriptor& operator=(PosixDescriptor&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~PosixDescriptor() {
        if (isOpen()) {
            ::close(value_);
        }
    }

    bool isOpen() const { return value_ >= 0; }
    int value() const { return value_; }

private:
    int value_ = -1;
};

/// A second descriptor of the same open file, behind the three standard streams. Holds none, with
/// the reason in errno, when that failed.
inline PosixDescriptor duplicateBehindStreams(int descriptor) {
    return PosixDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

/// Opens a file or a device, without waiting for anybody: a FIFO and a socket cannot be opened. Holds
/// none, with the reason in errno, when that failed.
///
/// A file that took the place of a closed standard stream would receive what any library prints.
inline PosixDescriptor openDescriptor(const std::string& path, int flags, mode_t mode = 0) {
    int value = -1;
    do {
        value = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, mode);
    } while (value < 0 && errno == EINTR);
    PosixDescriptor opened(value);
    struct stat status = {};
    if (!opened.isOpen() || ::fstat(value, &status) != 0) {
        return {};
    }
    if (S_ISFIFO(status.st_mode)) {
        errno = ENXIO;
        return {};
    }
    // Only opening must not wait; reading a device may.
    ::fcntl(value, F_SETFL, flags);
    return value <= STDERR_FILENO ? duplicateBehindStreams(value) : std::move(opened);
}

/// Writes all the bytes; returns whether that worked.
inline bool writeAll(int descriptor, const std::string& bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace Vexora
