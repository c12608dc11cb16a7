// A believable progress curve for a program that reports none: the bar rises by a fixed step per
// tick, and the delay between ticks doubles with every second poll. Shared by the main thread and
// the install run.
#pragma once

#include <atomic>
#include <cmath>

namespace Vexora {

/// Every member is read and written as a whole; after reset() only the install run writes,
/// or whoever finds that there can be none.
class ProgressModel {
public:
    /// Sets the values that hold before the first tick.
    void reset() {
        base = 2.0;
        exponent = -5.0;
        increment = 1.0;
        successfulInstall = false;
    }

    /// Seconds until the next tick: `base` raised to `exponent`.
    double tickDelay() const { return std::pow(base.load(), exponent.load()); }

    /// One look at the running program: slows the ticks down, and freezes a bar that has come close
    /// to its end. \param barValue tells the bar's value, of a range of 0 to 100; called once the
    /// exponent has been raised.
    template <class BarValue>
    void poll(const BarValue& barValue) {
        if (exponent < -1.0) {
            exponent = exponent + 0.5;
        }
        if (barValue() >= 90.0) {
            freeze();
        }
    }

    /// Lets the ticks go on without moving the bar.
    void freeze() { increment = 0.0; }

    /// Lets the next ticks carry the bar to its end.
    void finish() {
        increment = 10.0;
        successfulInstall = true;
    }

    std::atomic<double> base{0.0};
    std::atomic<double> exponent{0.0};
    std::atomic<double> increment{0.0};
    std::atomic<bool> successfulInstall{false};
};

} // namespace Vexora
