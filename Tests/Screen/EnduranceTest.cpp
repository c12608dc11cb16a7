// What the screens keep in memory when they are used for long, counted by replacing the global operator new of this program.
// The blocks come from malloc, so that the sanitizers still see each of them.
#include "ScreenFixture.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <vector>

using namespace ScreenTest;

namespace {

std::atomic<std::size_t> bytesInUse = 0;

/// Stands before every block and holds its size.
constexpr std::size_t headerSize = alignof(std::max_align_t);

} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* block = std::malloc(size + headerSize);
    if (block == nullptr) {
        return nullptr;
    }
    *static_cast<std::size_t*>(block) = size;
    bytesInUse += size;
    return static_cast<std::byte*>(block) + headerSize;
}

void* operator new(std::size_t size) {
    void* memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        void* block = static_cast<std::byte*>(memory) - headerSize;
        bytesInUse -= *static_cast<std::size_t*>(block);
        std::free(block);
    }
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

/// A main queue in virtual time that writes nothing down.
class QuietMainQueue : public Vexora::MainQueue {
public:
    explicit QuietMainQueue(Vexora::Recording::VirtualTime& time) : time_(time) {}

    void async(std::function<void()> block) override { time_.post(0.0, std::move(block)); }
    void after(double seconds, std::function<void()> block) override {
        ++ticks;
        time_.post(seconds, std::move(block));
    }

    std::size_t ticks = 0;

private:
    Vexora::Recording::VirtualTime& time_;
};

class Endurance : public ScreenFixture {
protected:
    /// What is in use once everything that was written down is forgotten.
    std::size_t used() {
        platform.calls.clear();
        return bytesInUse;
    }

    void openWindow() {
        window = std::make_shared<Vexora::ViewController>(seam);
        root = window->view();
    }

    QuietMainQueue mainQueue{platform.time};
    Vexora::Platform seam =
        platform.around(platform.application, platform.interfaces, mainQueue, platform.files);
};

TEST_F(Endurance, memoryInUseIsCounted) {
    const std::size_t before = bytesInUse;
    const std::vector<char> block(1000);
    EXPECT_EQ(bytesInUse - before, 1000U);
}

TEST_F(Endurance, aDayOfTicksTakesNoMemory) {
    constexpr unsigned hour = 60 * 60;
    std::vector<std::size_t> hours;
    hours.reserve(24);
    unsigned seconds = 0;
    platform.clock.afterSleep = [&] {
        const std::size_t now = used();
        if (++seconds % hour == 0) {
            hours.push_back(now);
        }
    };
    platform.processes.scripts = {{.polls = 24 * hour, .status = 0}};
    openWindow();
    pressStart();
    platform.backgroundQueue.runNext();
    EXPECT_EQ(hours, std::vector<std::size_t>(24, hours.front()));
    EXPECT_GT(mainQueue.ticks, 24U * hour * 2U);
    platform.time.advance(0.5);
    EXPECT_EQ(textField("installLabel")->stringValue(), "Installation completed!");
}

TEST_F(Endurance, aThousandVisitsOfTheLicenceTakeNoMemory) {
    openWindow();
    std::size_t first = 0;
    for (int visit = 0; visit < 1000; ++visit) {
        click("licenseLabel");
        ASSERT_EQ(root->subviews().back(), window->licenseView()->view());
        click("backButton");
        const std::size_t now = used();
        first = visit == 1 ? now : first;
        ASSERT_TRUE(visit == 0 || now == first) << "visit " << visit;
    }
}

} // namespace
