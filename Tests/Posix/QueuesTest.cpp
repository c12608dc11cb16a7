#include "Platform/Posix/Queues.h"

#include "SignalTimer.h"
#include "Support/WaitFor.h"

#include <pthread.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <latch>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>

using TestSupport::SignalTimer;
using TestSupport::waitFor;

namespace {

using Milliseconds = std::chrono::milliseconds;

Milliseconds timeToSleep(unsigned seconds) {
    const auto start = std::chrono::steady_clock::now();
    Vexora::PosixClock().sleep(seconds);
    return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - start);
}

/// While it lives, new threads ask for a stack of that many bytes.
class DefaultStackSize {
public:
    explicit DefaultStackSize(std::size_t bytes) {
        ::pthread_getattr_default_np(&before_);
        pthread_attr_t changed;
        ::pthread_getattr_default_np(&changed);
        EXPECT_EQ(::pthread_attr_setstacksize(&changed, bytes), 0);
        EXPECT_EQ(::pthread_setattr_default_np(&changed), 0);
        ::pthread_attr_destroy(&changed);
    }
    DefaultStackSize(const DefaultStackSize&) = delete;
    DefaultStackSize& operator=(const DefaultStackSize&) = delete;
    ~DefaultStackSize() {
        ::pthread_setattr_default_np(&before_);
        ::pthread_attr_destroy(&before_);
    }

private:
    pthread_attr_t before_;
};

[[noreturn]] void leaveWhileABlockWaits() {
    const auto running = std::make_shared<std::latch>(1);
    Vexora::PosixBackgroundQueue().async([running] {
        running->count_down();
        std::latch never(1);
        never.wait();
    });
    running->wait();
    std::exit(0);
}

void endWithAnException() {
    Vexora::PosixBackgroundQueue().async([] { throw std::runtime_error("left the block"); });
    waitFor([] { return false; });
}

} // namespace

TEST(PosixBackgroundQueue, runsABlockOnAnotherThread) {
    const auto thread = std::make_shared<std::atomic<std::thread::id>>();
    Vexora::PosixBackgroundQueue().async([thread] { *thread = std::this_thread::get_id(); });
    ASSERT_TRUE(waitFor([&] { return thread->load() != std::thread::id(); }));
    EXPECT_NE(thread->load(), std::this_thread::get_id());
}

TEST(PosixBackgroundQueue, blocksRunBesideOneAnother) {
    // Each block waits for the other two.
    const auto together = std::make_shared<std::latch>(3);
    const auto ended = std::make_shared<std::atomic<int>>(0);
    Vexora::PosixBackgroundQueue queue;
    for (int block = 0; block < 3; ++block) {
        queue.async([together, ended] {
            together->arrive_and_wait();
            ++*ended;
        });
    }
    EXPECT_TRUE(waitFor([&] { return *ended == 3; }));
}

TEST(PosixBackgroundQueue, aBlockIsReleasedWhenItHasRun) {
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watched = held;
    Vexora::PosixBackgroundQueue().async([held = std::move(held)] {});
    EXPECT_TRUE(waitFor([&] { return watched.expired(); }));
}

TEST(PosixBackgroundQueue, aThreadThatTheSystemRefusesIsAnErrorWithItsReason) {
    const auto held = std::make_shared<int>(0);
    // No machine has an address space for such a stack.
    const DefaultStackSize stack(std::size_t{1} << 60);
    try {
        Vexora::PosixBackgroundQueue().async([held] {});
        ADD_FAILURE() << "there is a thread";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::resource_unavailable_try_again);
        EXPECT_EQ(std::string(error.what()),
                  std::string("Cannot start a thread: ") + std::strerror(EAGAIN));
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(PosixBackgroundQueueDeathTest, leavingTheProcessWaitsForNoBlock) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(leaveWhileABlockWaits(), testing::ExitedWithCode(0), "");
}

TEST(PosixBackgroundQueueDeathTest, anExceptionThatLeavesABlockEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(endWithAnException(), testing::KilledBySignal(SIGABRT), "left the block");
}

TEST(PosixClock, sleepsTheWholeTime) {
    const Milliseconds time = timeToSleep(1);
    EXPECT_GE(time, Milliseconds(1000));
    EXPECT_LT(time, Milliseconds(5000));
}

TEST(PosixClock, signalsDoNotShortenTheSleep) {
    const SignalTimer timer;
    const Milliseconds time = timeToSleep(1);
    EXPECT_GE(time, Milliseconds(1000));
    EXPECT_LT(time, Milliseconds(5000));
    EXPECT_GT(SignalTimer::interruptions, 10);
}

TEST(PosixClock, noSecondsAreNoSleep) {
    EXPECT_LT(timeToSleep(0), Milliseconds(1000));
}
