// Where blocks run beside the event loop: on macOS the system's own queues, elsewhere threads.
#pragma once

#include "Platform/AppKit/Compatibility.h"
#include "Platform/Posix/Queues.h"

#ifndef GNUSTEP
#include <dispatch/dispatch.h>
#endif
#include <functional>
#include <memory>

namespace Vexora {

#ifdef GNUSTEP
using AppKitBackgroundQueue = PosixBackgroundQueue;
#else
/// Hands a block to a queue of the system's. An exception that leaves it ends the process.
inline void dispatch(dispatch_queue_t queue, std::function<void()> block) {
    dispatch_async_f(queue, new std::function<void()>(std::move(block)), [](void* given) noexcept {
        const std::unique_ptr<std::function<void()>> owned(
            static_cast<std::function<void()>*>(given));
        const AutoreleaseScope scope;
        (*owned)();
    });
}

/// The global queue of default priority.
class AppKitBackgroundQueue final : public BackgroundQueue {
public:
    void async(std::function<void()> block) override {
        dispatch(dispatch_get_global_queue(0, 0), std::move(block));
    }
};
#endif

} // namespace Vexora
