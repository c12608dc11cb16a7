#include "Platform/Posix/Queues.h"

#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

namespace Vexora {

void PosixBackgroundQueue::async(std::function<void()> block) {
    try {
        std::thread(std::move(block)).detach();
    } catch (const std::system_error& error) {
        throw std::system_error(error.code(), "Cannot start a thread");
    }
}

void PosixClock::sleep(unsigned seconds) {
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
}

} // namespace Vexora
