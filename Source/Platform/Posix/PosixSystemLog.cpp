#include "Platform/Posix/PosixSystemLog.h"

#include "Platform/Posix/PosixDescriptor.h"

#include <signal.h>

namespace Vexora {

PosixSystemLog::PosixSystemLog() {
    ::signal(SIGPIPE, SIG_IGN);
}

void PosixSystemLog::log(const std::string& line) {
    writeAll(STDERR_FILENO, line + '\n');
}

} // namespace Vexora
