// Where work runs and how time passes. Nothing above the seam owns a thread or asks a clock.
// Blocks hold what they need by shared pointers.
#pragma once

#include <functional>

namespace Vexora {

/// Runs blocks on the main thread, in posting order.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// Runs the block later on the main thread. Any thread.
    virtual void async(std::function<void()> block) = 0;

    /// Runs the block once on the main thread, no earlier than after that many seconds. Main thread
    /// only.
    virtual void after(double seconds, std::function<void()> block) = 0;
};

/// Runs blocks beside the main thread; leaving the process waits for none of them.
class BackgroundQueue {
public:
    virtual ~BackgroundQueue() = default;

    /// Runs the block on another thread. An exception that leaves it ends the process.
    /// \throws std::system_error when the system has no thread left.
    virtual void async(std::function<void()> block) = 0;
};

/// Makes a thread wait.
class Clock {
public:
    virtual ~Clock() = default;

    /// Suspends the calling thread for that many seconds. Any thread.
    virtual void sleep(unsigned seconds) = 0;
};

} // namespace Vexora
