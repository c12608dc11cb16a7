#include "Platform/Posix/Environment.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <vector>

#ifdef __APPLE__
#include <mach-o/dyld.h>

#include <memory>
#endif

namespace Vexora {

namespace {

/// The variable's value; an empty one counts as unset.
std::string environmentValue(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// The home directory in the user database, or nothing.
std::string registeredHomeDirectory() {
    std::vector<char> buffer(1024);
    struct passwd entry = {};
    struct passwd* found = nullptr;
    int error = 0;
    while ((error = ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found)) ==
               ERANGE ||
           error == EINTR) {
        buffer.resize(buffer.size() * 2);
    }
    return error == 0 && found != nullptr && found->pw_dir != nullptr ? found->pw_dir : "";
}

#ifdef __APPLE__

std::string executablePath() {
    std::uint32_t size = 0;
    ::_NSGetExecutablePath(nullptr, &size);
    std::vector<char> path(size + 1);
    ::_NSGetExecutablePath(path.data(), &size);
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.data(), nullptr),
                                                           &std::free);
    if (!real) {
        throw std::system_error(errno, std::generic_category(), "Cannot find the executable");
    }
    return real.get();
}

#else

std::string executablePath() {
    return executableBehind("/proc/self/exe");
}

#endif

} // namespace

std::string executableBehind(const std::string& link) {
    // The system gives paths of at most this length.
    std::string path(4096, '\0');
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length < 0) {
        throw std::system_error(errno, std::generic_category(), "Cannot find the executable");
    }
    path.resize(static_cast<std::size_t>(length));
    return path;
}

std::string posixHomeDirectory() {
    std::string home = environmentValue("HOME");
    if (!home.starts_with('/')) {
        home = registeredHomeDirectory();
    }
    while (home.ends_with('/')) {
        home.pop_back();
    }
    return home;
}

std::string posixLocaleIdentifier() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string value = environmentValue(name);
        if (value.empty()) {
            continue;
        }
        const std::string identifier = value.substr(0, value.find_first_of(".@"));
        return identifier == "C" || identifier == "POSIX" ? "en_US" : identifier;
    }
    return "en_US";
}

std::string resourcePathBeside(const std::string& executablePath) {
    return executablePath.substr(0, executablePath.rfind('/')) + "/Resources";
}

std::string posixResourcePath() {
    return resourcePathBeside(executablePath());
}

} // namespace Vexora
