// Diagnostic lines on the standard error stream.
// They go straight to the system, so a line is out before the process can end.
#pragma once

#include "Platform/Services.h"

namespace Vexora {

/// Any thread; lines of several threads do not mix.
class PosixSystemLog final : public SystemLog {
public:
    /// Writes the line and its end at once. A stream that is closed swallows it, and in a prepared
    /// process one whose reader went away.
    void log(const std::string& line) override;
};

} // namespace Vexora
