// Threads and their sleep, the same on Linux and macOS.
// Nothing here outlives its call but the threads themselves, so the process can be left at any
// time.
#pragma once

#include "Platform/Queues.h"

namespace Vexora {

/// Gives every block a thread of its own, which nobody waits for.
class PosixBackgroundQueue final : public BackgroundQueue {
public:
    /// Any thread. \throws std::system_error when the system gives no further thread; its text says
    /// so and names the reason.
    void async(std::function<void()> block) override;
};

/// Sleeps in real time.
class PosixClock final : public Clock {
public:
    /// A signal does not shorten the sleep.
    void sleep(unsigned seconds) override;
};

} // namespace Vexora
