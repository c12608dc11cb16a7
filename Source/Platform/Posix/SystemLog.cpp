#include "Platform/Posix/SystemLog.h"

#include "Platform/Posix/Descriptor.h"

#include <signal.h>

namespace Vexora {

PosixSystemLog::PosixSystemLog() {
    ::signal(SIGPIPE, SIG_IGN);
}

void PosixSystemLog::log(const std::string& line) {
    writeAll(STDERR_FILENO, line + '\n');
}

} // namespace Vexora
