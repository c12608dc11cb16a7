// Queues on real threads and a clock whose seconds are short, for the thread sanitizer.
// The main queue is the thread that calls runUntil.
#pragma once

#include "Platform/Queues.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace TestSupport {

/// A main queue whose delays are as short as the clock's.
class ThreadedMainQueue : public Vexora::MainQueue {
public:
    void async(std::function<void()> block) override { after(0.0, std::move(block)); }

    void after(double seconds, std::function<void()> block) override {
        const std::lock_guard lock(mutex_);
        blocks_.emplace(Time::clock::now() + shortened(seconds), std::move(block));
        changed_.notify_one();
    }

    /// Runs blocks until the condition holds, which is looked at after each of them.
    /// \return false when it does not hold within half a minute.
    bool runUntil(const std::function<bool()>& condition) {
        const Time deadline = Time::clock::now() + std::chrono::seconds(30);
        while (!condition()) {
            const auto block = next(deadline);
            if (!block) {
                return false;
            }
            block();
        }
        return true;
    }

private:
    using Time = std::chrono::steady_clock::time_point;

    static Time::duration shortened(double seconds) {
        return std::chrono::duration_cast<Time::duration>(
            std::chrono::duration<double, std::micro>(seconds * 100.0));
    }

    /// The block that is due first, as soon as it is due; none when the deadline comes before.
    std::function<void()> next(Time deadline) {
        std::unique_lock lock(mutex_);
        for (;;) {
            const Time due = blocks_.empty() ? deadline : blocks_.begin()->first;
            if (!blocks_.empty() && due <= Time::clock::now()) {
                auto block = std::move(blocks_.begin()->second);
                blocks_.erase(blocks_.begin());
                return block;
            }
            if (Time::clock::now() >= deadline) {
                return nullptr;
            }
            changed_.wait_until(lock, std::min(due, deadline));
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::multimap<Time, std::function<void()>> blocks_;
};

/// A background queue for one block, on a thread of its own.
class ThreadedBackgroundQueue : public Vexora::BackgroundQueue {
public:
    ~ThreadedBackgroundQueue() override { join(); }

    void async(std::function<void()> block) override { thread_ = std::thread(std::move(block)); }

    /// Waits for the end of the block.
    void join() {
        if (thread_.joinable()) {
            thread_.join();
        }
    }

private:
    std::thread thread_;
};

/// A clock with seconds of a hundred microseconds.
class ShortClock : public Vexora::Clock {
public:
    void sleep(unsigned seconds) override {
        std::this_thread::sleep_for(std::chrono::microseconds(100) * seconds);
    }
};

} // namespace TestSupport
