#pragma once

#include "Time.h"

#include <functional>
#include <memory>

namespace vantrel {

/// A piece of delayed work that can be called off. Move-only; dropping the handle cancels.
///
/// The handle may be dropped or cancelled from within its own work: the run that has begun
/// completes, a repeating one does not run again. Main thread only.
class ScheduledWork {
public:
    struct State {
        std::function<void()> work;
        bool isCancelled = false;
    };

    ScheduledWork() = default;
    explicit ScheduledWork(std::shared_ptr<State> state);
    ScheduledWork(ScheduledWork &&other) noexcept = default;
    ScheduledWork &operator=(ScheduledWork &&other) noexcept;
    ScheduledWork(const ScheduledWork &) = delete;
    ScheduledWork &operator=(const ScheduledWork &) = delete;
    ~ScheduledWork();

    /// Harmless on an empty handle, twice, and after the work has run.
    void cancel();

private:
    std::shared_ptr<State> m_state;
};

/// The main thread's clock and timer factory in one: whatever waits in the program waits here.
///
/// Deadlines count the monotonic clock, so setting the wall clock moves none of them. Work whose
/// deadlines are equal runs in the order in which it was scheduled. Main thread only; the queue
/// outlives everything that schedules on it.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// The wall clock, as the user sees it. It may jump either way.
    [[nodiscard]] virtual Instant now() const = 0;

    [[nodiscard]] virtual MonotonicInstant uptime() const = 0;

    /// Runs `work` once, `delay` from now and never earlier; a delay of zero or less runs it on
    /// the next turn of the loop.
    [[nodiscard]] ScheduledWork after(Seconds delay, std::function<void()> work);

    /// Runs `work` every `interval` (above zero), the first time one interval from now. A turn
    /// that comes late does not shift the ones behind it, and ticks that were missed while the
    /// machine slept are not made up for.
    [[nodiscard]] ScheduledWork every(Seconds interval, std::function<void()> work);

    /// Runs `work` on the next turn of the loop, behind what was handed in before.
    void async(std::function<void()> work);

protected:
    /// Calls `state->work` at `deadline` unless it was cancelled by then; with an `interval`
    /// above zero again at each multiple of it.
    virtual void schedule(std::shared_ptr<ScheduledWork::State> state, MonotonicInstant deadline,
                          Seconds interval) = 0;
};

} // namespace vantrel
