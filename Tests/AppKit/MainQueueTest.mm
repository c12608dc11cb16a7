#include "Platform/AppKit/MainQueue.h"

#include "Platform/AppKit/Compatibility.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <vector>

namespace AppKitTest {

using Clock = std::chrono::steady_clock;

/// What only the event loop of this toolkit does.
class EventLoop : public testing::Test {
protected:
    Vexora::AutoreleaseScope scope;
    Vexora::AppKitMainQueue queue;
    std::vector<int> order;
};

TEST_F(EventLoop, knowsOfThreadsBeforeTheFirst) {
    EXPECT_TRUE([NSThread isMultiThreaded]);
}

TEST_F(EventLoop, wakesAnEventLoopThatSleeps) {
    Clock::time_point posted;
    Clock::time_point ran;
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        posted = Clock::now();
        queue.async([&] {
            ran = Clock::now();
            [NSApp stop:nil];
            [NSApp postEvent:[NSEvent otherEventWithType:NSApplicationDefined
                                                location:NSZeroPoint
                                           modifierFlags:0
                                               timestamp:0.0
                                            windowNumber:0
                                                 context:nil
                                                 subtype:0
                                                   data1:0
                                                   data2:0]
                     atStart:NO];
        });
    });
    [NSApp run];
    other.join();
    EXPECT_LT(ran - posted, std::chrono::seconds(2));
}

TEST_F(EventLoop, runsBlocksWhileAControlIsDraggedOrADialogRuns) {
    for (NSString* mode : {NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode}) {
        order.clear();
        queue.async([this] { order.push_back(1); });
        queue.after(0.001, [this] { order.push_back(2); });
        const auto limit = Clock::now() + std::chrono::seconds(10);
        while (order.size() < 2 && Clock::now() < limit) {
            [[NSRunLoop currentRunLoop] runMode:mode
                                     beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
        }
        EXPECT_EQ(order, (std::vector<int>{1, 2}));
    }
}

} // namespace AppKitTest
