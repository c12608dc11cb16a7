// Time that passes only when somebody sleeps or a test says so, and the queues that live in it.
// A whole installation runs in one thread: while the background side sleeps, the main queue works.
#pragma once

#include "Platform/Queues.h"
#include "Platform/Recording/CallLog.h"

#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace Vexora::Recording {

/// Thrown out of a background block when the process would have ended under it.
struct ProcessEnded {};

/// Seconds since the start, and the blocks that wait for their time.
class VirtualTime {
public:
    double now() const { return now_; }

    /// Lets a block run after a delay. Blocks that are due at the same time run in the order in
    /// which they were posted.
    void post(double delay, std::function<void()> block);

    /// Runs every block that becomes due up to that time, the time itself included. Nothing runs
    /// any more once the process has ended.
    void advanceTo(double time);
    void advance(double seconds) { advanceTo(now_ + seconds); }

    /// Runs what is due now.
    void runDue() { advanceTo(now_); }

    /// How many blocks wait.
    std::size_t pending() const { return blocks_.size(); }

    /// From here on nothing runs, as after exit().
    void end() { ended_ = true; }
    bool hasEnded() const { return ended_; }

private:
    double now_ = 0.0;
    bool ended_ = false;
    /// Ordered by due time and then by the order of posting, which multimap keeps.
    std::multimap<double, std::function<void()>> blocks_;
};

/// The main queue in virtual time.
class ManualMainQueue : public MainQueue {
public:
    ManualMainQueue(CallLog& calls, VirtualTime& time) : calls_(calls), time_(time) {}

    void async(std::function<void()> block) override;
    void after(double seconds, std::function<void()> block) override;

    /// The delays that were asked for, to the last bit.
    const std::vector<double>& delays() const { return delays_; }

private:
    CallLog& calls_;
    VirtualTime& time_;
    std::vector<double> delays_;
};

/// A background queue whose blocks run when the test says so.
class ManualBackgroundQueue : public BackgroundQueue {
public:
    explicit ManualBackgroundQueue(CallLog& calls) : calls_(calls) {}

    void async(std::function<void()> block) override;

    std::size_t pending() const { return blocks_.size(); }

    /// Runs the oldest block to its end, or to the end of the process. What it throws passes on.
    /// \throws std::out_of_range when no block waits.
    void runNext();

    /// Whether there is no thread left for a block.
    bool refuses = false;

private:
    CallLog& calls_;
    std::deque<std::function<void()>> blocks_;
};

/// A clock in virtual time: sleeping lets the main queue work.
class ManualClock : public Clock {
public:
    ManualClock(CallLog& calls, VirtualTime& time) : calls_(calls), time_(time) {}

    /// \throws ProcessEnded when the process has ended or endAt is reached.
    void sleep(unsigned seconds) override;

    /// When a program that never ends is given up; in seconds.
    double endAt = std::numeric_limits<double>::infinity();

    /// Called at the end of every sleep.
    std::function<void()> afterSleep;

private:
    CallLog& calls_;
    VirtualTime& time_;
};

} // namespace Vexora::Recording
