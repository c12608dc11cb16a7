#include "Backend/FrontEnd.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace BackendTest {

using Clock = std::chrono::steady_clock;

class MainQueue : public testing::Test {
protected:
    bool waitForBlocks(std::size_t count) {
        return FrontEnd::waitFor([&] { return order.size() == count; });
    }

    FrontEnd::Scope scope;
    FrontEnd::MainQueue queue;
    std::vector<int> order;
};

TEST_F(MainQueue, runsBlocksLaterInPostingOrder) {
    std::vector<int> expected;
    for (int number = 0; number < 100; ++number) {
        queue.async([&, number] { order.push_back(number); });
        expected.push_back(number);
    }
    EXPECT_TRUE(order.empty());
    ASSERT_TRUE(waitForBlocks(100));
    EXPECT_EQ(order, expected);
}

TEST_F(MainQueue, runsBlocksOfAnotherThreadOnTheMainThread) {
    std::vector<std::thread::id> threads;
    std::thread other([&] {
        for (int number = 0; number < 50; ++number) {
            queue.async([&, number] {
                threads.push_back(std::this_thread::get_id());
                order.push_back(number);
            });
        }
    });
    const bool complete = waitForBlocks(50);
    other.join();
    ASSERT_TRUE(complete);
    EXPECT_TRUE(std::ranges::is_sorted(order));
    EXPECT_EQ(threads, std::vector<std::thread::id>(50, std::this_thread::get_id()));
}

TEST_F(MainQueue, runsABlockThatABlockPostsAfterThoseAlreadyPosted) {
    queue.async([this] {
        order.push_back(1);
        queue.async([this] { order.push_back(3); });
    });
    queue.async([this] { order.push_back(2); });
    ASSERT_TRUE(waitForBlocks(3));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST_F(MainQueue, isNeverEarly) {
    for (const double seconds : {0.0, 0.0005, 0.001, 1.0 / 32.0, 0.0441942, 0.0625, 0.125}) {
        order.clear();
        const auto posted = Clock::now();
        Clock::time_point ran;
        queue.after(seconds, [&] {
            ran = Clock::now();
            order.push_back(1);
        });
        EXPECT_TRUE(order.empty());
        ASSERT_TRUE(waitForBlocks(1));
        EXPECT_GE(std::chrono::duration<double>(ran - posted).count(), seconds);
    }
}

TEST_F(MainQueue, runsABlockOnceAfterItsDelay) {
    queue.after(0.05, [this] { order.push_back(2); });
    queue.after(0.01, [this] { order.push_back(1); });
    ASSERT_TRUE(waitForBlocks(2));
    FrontEnd::settle();
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(MainQueue, letsGoOfWhatABlockHolds) {
    const auto held = std::make_shared<int>(1);
    queue.async([&, held] { order.push_back(*held); });
    queue.after(0.001, [&, held] { order.push_back(*held); });
    EXPECT_EQ(held.use_count(), 3);
    ASSERT_TRUE(waitForBlocks(2));
    FrontEnd::settle();
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace BackendTest
