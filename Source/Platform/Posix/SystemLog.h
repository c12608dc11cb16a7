// Diagnostic lines on the standard error stream.
// They go straight to the system, so a line is out before the process can end.
#pragma once

#include "Platform/Services.h"

namespace Vexora {

/// Any thread; lines of several threads do not mix.
class PosixSystemLog final : public SystemLog {
public:
    /// Makes this process ignore SIGPIPE: a reader of the lines that went away must not end it.
    PosixSystemLog();

    /// Writes the line and its end at once. A stream that is closed swallows it.
    void log(const std::string& line) override;
};

} // namespace Vexora
