// Waiting in tests: for a condition, never for a time.
// A test that waits for something which cannot be signalled to it asks here until it holds.
#pragma once

#include <chrono>
#include <thread>

namespace TestSupport {

/// Asks the predicate again and again until it holds or the time is over.
///
/// \param predicate called on this thread, at least once; returns something usable as a condition.
/// \param limit how long to wait at most.
/// \return whether the predicate held.
template <class Predicate>
bool waitFor(Predicate predicate, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace TestSupport
