// Stands in for the system's header of queues: what is handed to one waits until a test runs it.
#pragma once

#include <vector>

struct StandInQueue;
using dispatch_queue_t = const StandInQueue*;

struct StandInBlock {
    dispatch_queue_t queue;
    void* context;
    void (*function)(void*);
};

inline std::vector<StandInBlock> waitingBlocks;

/// The one of default priority, and the one of the main thread.
dispatch_queue_t dispatch_get_global_queue(long priority, unsigned long flags);
dispatch_queue_t dispatch_get_main_queue();

inline void dispatch_async_f(dispatch_queue_t queue, void* context, void (*function)(void*)) {
    waitingBlocks.push_back({queue, context, function});
}
