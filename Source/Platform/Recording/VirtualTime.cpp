#include "Platform/Recording/VirtualTime.h"

#include <stdexcept>
#include <string>
#include <system_error>

namespace Vexora::Recording {

void VirtualTime::post(double delay, std::function<void()> block) {
    blocks_.emplace(now_ + delay, std::move(block));
}

void VirtualTime::advanceTo(double time) {
    while (!ended_ && !blocks_.empty() && blocks_.begin()->first <= time) {
        now_ = blocks_.begin()->first;
        const auto block = std::move(blocks_.begin()->second);
        blocks_.erase(blocks_.begin());
        block();
    }
    if (!ended_) {
        now_ = time;
    }
}

void ManualMainQueue::async(std::function<void()> block) {
    calls_.add("mainQueue.async");
    time_.post(0.0, std::move(block));
}

void ManualMainQueue::after(double seconds, std::function<void()> block) {
    calls_.add("mainQueue.after " + written(seconds));
    delays_.push_back(seconds);
    time_.post(seconds, std::move(block));
}

void ManualBackgroundQueue::async(std::function<void()> block) {
    calls_.add("backgroundQueue.async");
    if (refuses) {
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again),
                                "Cannot start a thread");
    }
    blocks_.push_back(std::move(block));
}

void ManualBackgroundQueue::runNext() {
    if (blocks_.empty()) {
        throw std::out_of_range("no background block waits");
    }
    const auto block = std::move(blocks_.front());
    blocks_.pop_front();
    try {
        block();
    } catch (const ProcessEnded&) {
        // The thread is gone with its process.
    }
}

void ManualClock::sleep(unsigned seconds) {
    calls_.add("sleep " + std::to_string(seconds));
    time_.advance(seconds);
    if (time_.hasEnded()) {
        throw ProcessEnded();
    }
    if (afterSleep) {
        afterSleep();
    }
    if (time_.now() >= endAt) {
        throw ProcessEnded();
    }
}

} // namespace Vexora::Recording
