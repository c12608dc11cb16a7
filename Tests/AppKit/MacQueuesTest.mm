#include "Platform/AppKit/Compatibility.h"

// From here on as on a Mac, with queues that only remember.
#undef GNUSTEP
#include "Platform/AppKit/MainQueue.mm"

#include <gtest/gtest.h>

struct StandInQueue {};

static const StandInQueue ofDefaultPriority;
static const StandInQueue ofTheMainThread;

dispatch_queue_t dispatch_get_global_queue(long priority, unsigned long flags) {
    return priority == 0 && flags == 0 ? &ofDefaultPriority : nullptr;
}

dispatch_queue_t dispatch_get_main_queue() {
    return &ofTheMainThread;
}

namespace AppKitTest {

class MacQueues : public testing::Test {
protected:
    MacQueues() { waitingBlocks.clear(); }

    /// A block that counts, and is to be gone once it has run.
    std::function<void()> block() {
        const std::shared_ptr<int> held = held_;
        return [&, held] { runs += *held; };
    }

    /// Runs what waits, which has to be one block of that queue.
    void runFrom(dispatch_queue_t queue) {
        held_.reset();
        ASSERT_EQ(waitingBlocks.size(), 1U);
        EXPECT_EQ(waitingBlocks.front().queue, queue);
        EXPECT_FALSE(watched_.expired());
        EXPECT_EQ(runs, 0);
        waitingBlocks.front().function(waitingBlocks.front().context);
        EXPECT_EQ(runs, 1);
        EXPECT_TRUE(watched_.expired());
    }

    int runs = 0;

private:
    std::shared_ptr<int> held_ = std::make_shared<int>(1);
    std::weak_ptr<int> watched_ = held_;
};

TEST_F(MacQueues, runTheInstallationByTheGlobalOneOfDefaultPriority) {
    Vexora::AppKitBackgroundQueue().async(block());
    runFrom(&ofDefaultPriority);
}

TEST_F(MacQueues, runWhatIsPostedByTheOneOfTheMainThread) {
    Vexora::AppKitMainQueue().async(block());
    runFrom(&ofTheMainThread);
}

} // namespace AppKitTest
