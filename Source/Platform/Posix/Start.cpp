#include "Platform/Posix/Start.h"

#include "Platform/Posix/Descriptor.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <initializer_list>

namespace Vexora {

void prepareProcess() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) < 0) {
            // The system gives the lowest free number, and those below are taken.
            ::open("/dev/null", O_RDWR);
        }
    }
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGXFSZ, SIG_IGN);
}

std::string neededForStart(const std::function<std::string()>& find) {
    try {
        return find();
    } catch (const std::exception& error) {
        writeAll(STDERR_FILENO, std::string(error.what()) + '\n');
        std::exit(0);
    }
}

} // namespace Vexora
