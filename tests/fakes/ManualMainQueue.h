#pragma once

#include <platform/MainQueue.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace vantrel::fakes {

/// The queue's manual twin: time stands still until a test moves it. Moving it on runs what falls
/// due, in the order of the deadlines and, among equal ones, of scheduling.
///
/// Both clocks and all deadlines stand on a grid of microseconds: sums of doubles would drift apart
/// and let work that is due at a full second miss it by a hair.
class ManualMainQueue : public MainQueue {
public:
    explicit ManualMainQueue(Instant start) : m_now(grid(start.time_since_epoch())) {}

    [[nodiscard]] Instant now() const override { return Instant{m_now}; }
    [[nodiscard]] MonotonicInstant uptime() const override { return MonotonicInstant{m_uptime}; }

    /// Runs what is due at this very moment, and what that schedules without delay.
    void runDue() { advance(Seconds::zero()); }

    /// Lets both clocks run on by `step` (zero or more).
    void advance(Seconds step);

    /// Lets both clocks run on until the wall clock shows `instant`, which is not in the past.
    void advanceTo(Instant instant) { advance(instant - now()); }

    /// Sets the wall clock, either way; deadlines stay where they are.
    void jumpWallTo(Instant instant) { m_now = grid(instant.time_since_epoch()); }

    /// The machine sleeps: the wall clock runs on, the monotonic one and all deadlines stand still.
    void suspend(Seconds length) { m_now += grid(length); }

    /// How many pieces of work wait, cancelled ones left out.
    [[nodiscard]] std::size_t pendingCount() const;

protected:
    void schedule(std::shared_ptr<ScheduledWork::State> state, MonotonicInstant deadline,
                  Seconds interval) override;

private:
    using Grid = std::chrono::microseconds;

    struct Entry {
        std::shared_ptr<ScheduledWork::State> state;
        Seconds interval;
    };

    static Grid grid(Seconds seconds) { return std::chrono::round<Grid>(seconds); }

    Grid m_now;
    Grid m_uptime = std::chrono::seconds{1000};
    std::uint64_t m_sequence = 0;
    std::map<std::pair<Grid, std::uint64_t>, Entry> m_entries;
};

} // namespace vantrel::fakes
