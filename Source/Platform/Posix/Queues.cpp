#include "Platform/Posix/Queues.h"

#include <chrono>
#include <thread>
#include <utility>

namespace Vexora {

void PosixBackgroundQueue::async(std::function<void()> block) {
    std::thread(std::move(block)).detach();
}

void PosixClock::sleep(unsigned seconds) {
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
}

} // namespace Vexora
