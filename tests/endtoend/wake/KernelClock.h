#pragma once

namespace vantrel::tests {

/// Stands in for the kernel where a program asks it to tell when the wall clock jumps: a test
/// cannot set the machine's own clock. Timers of that kind that are made while it exists get their
/// notice from the test. One at a time.
class KernelClock {
public:
    KernelClock();
    ~KernelClock();
    KernelClock(const KernelClock &) = delete;
    KernelClock &operator=(const KernelClock &) = delete;

    /// Tells the timer made last that the clock was set, or that the machine slept.
    void announceJump() const;
};

} // namespace vantrel::tests
