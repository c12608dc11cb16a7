// A library that is loaded into the program to make faults inside it. For each fault that is wanted now there is a link in
// the folder that VEXORA_FAULTS names; what the link points to is a number that says how much.
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace {

std::string linkOf(const char* fault) {
    const char* const folder = std::getenv("VEXORA_FAULTS");
    return std::string(folder == nullptr ? "" : folder) + '/' + fault;
}

/// The fault's number; none while it is not wanted. Takes no descriptor, and leaves errno alone.
std::optional<long> wanted(const char* fault) {
    const int error = errno;
    std::array<char, 32> number{};
    const ssize_t size = ::readlink(linkOf(fault).c_str(), number.data(), number.size() - 1);
    errno = error;
    return size < 0 ? std::nullopt : std::optional(std::strtol(number.data(), nullptr, 10));
}

/// The function in whose place one of the same name stands here.
template <class Function>
Function* covered(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// Lets so many further descriptors be opened, and no more.
void leaveDescriptors(long count) {
    const rlimit limits{64, 64};
    ::setrlimit(RLIMIT_NOFILE, &limits);
    while (::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0) >= 0) {
    }
    for (int last = 63; count > 0; --count) {
        ::close(last--);
    }
}

int openLater(const char* path, int flags, mode_t mode) {
    while (std::string_view(path).ends_with(".log") && wanted("slow")) {
        ::usleep(10000);
    }
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

/// Holds the end of the process up, once all others have left, for as long as the link has the name that tells of this.
void leaveLater() {
    if (wanted("leaving")) {
        ::rename(linkOf("leaving").c_str(), linkOf("left").c_str());
    }
    while (wanted("left")) {
        ::usleep(10000);
    }
}

/// What is registered first is called last.
const int registered = std::atexit(leaveLater);

} // namespace

extern "C" {

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                   void* argument) noexcept {
    if (wanted("thread")) {
        return EAGAIN;
    }
    if (const auto count = wanted("descriptors")) {
        leaveDescriptors(*count);
    }
    return covered<decltype(pthread_create)>("pthread_create")(thread, attributes, run, argument);
}

int posix_spawn(pid_t* process, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const* arguments,
                char* const* environment) {
    // What the program starts has no such faults.
    ::unsetenv("LD_PRELOAD");
    return wanted("process") ? EAGAIN
                             : covered<decltype(posix_spawn)>("posix_spawn")(
                                   process, path, actions, attributes, arguments, environment);
}

int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = va_arg(more, mode_t);
    va_end(more);
    return openLater(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = va_arg(more, mode_t);
    va_end(more);
    return openLater(path, flags, mode);
}

int clock_gettime(clockid_t clock, timespec* time) noexcept {
    const long result = ::syscall(SYS_clock_gettime, clock, time);
    if (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE) {
        time->tv_sec += wanted("clock").value_or(0);
    }
    return static_cast<int>(result);
}

int gettimeofday(timeval* time, void*) noexcept {
    timespec now{};
    const int result = clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / 1000;
    return result;
}

time_t time(time_t* seconds) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (seconds != nullptr) {
        *seconds = now.tv_sec;
    }
    return now.tv_sec;
}

} // extern "C"
