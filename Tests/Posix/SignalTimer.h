// A timer that keeps interrupting the calling thread's system calls, to show that they survive it.
// One at a time in a process.
#pragma once

#include <signal.h>
#include <sys/time.h>

#include <atomic>

namespace TestSupport {

/// While it lives, SIGALRM arrives every few milliseconds and does not restart system calls.
class SignalTimer {
public:
    SignalTimer() {
        interruptions = 0;
        struct sigaction action = {};
        action.sa_handler = [](int) { ++interruptions; };
        ::sigaction(SIGALRM, &action, &previous_);
        const itimerval every{{0, 5000}, {0, 5000}};
        ::setitimer(ITIMER_REAL, &every, nullptr);
    }
    SignalTimer(const SignalTimer&) = delete;
    SignalTimer& operator=(const SignalTimer&) = delete;
    ~SignalTimer() {
        const itimerval never{};
        ::setitimer(ITIMER_REAL, &never, nullptr);
        ::sigaction(SIGALRM, &previous_, nullptr);
    }

    /// How often the signal has arrived since the timer was made.
    static inline std::atomic<int> interruptions{0};

private:
    struct sigaction previous_ = {};
};

} // namespace TestSupport
