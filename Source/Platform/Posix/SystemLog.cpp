#include "Platform/Posix/SystemLog.h"

#include "Platform/Posix/Descriptor.h"

namespace Vexora {

void PosixSystemLog::log(const std::string& line) {
    writeAll(STDERR_FILENO, line + '\n');
}

} // namespace Vexora
