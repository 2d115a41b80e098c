#pragma once

#include <platform/MainQueue.h>

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace vantrel::fakes {

/// The queue's manual twin: time stands still until a test moves it. Moving it on runs what falls
/// due, in the order of the deadlines and, among equal ones, of scheduling.
class ManualMainQueue : public MainQueue {
public:
    explicit ManualMainQueue(Instant start) : m_now(start) {}

    [[nodiscard]] Instant now() const override { return m_now; }
    [[nodiscard]] MonotonicInstant uptime() const override { return m_uptime; }

    /// Runs what is due at this very moment, and what that schedules without delay.
    void runDue() { advance(Seconds::zero()); }

    /// Lets both clocks run on by `step` (zero or more).
    void advance(Seconds step);

    /// Lets both clocks run on until the wall clock shows `instant`, which is not in the past.
    void advanceTo(Instant instant) { advance(instant - m_now); }

    /// Sets the wall clock, either way; deadlines stay where they are.
    void jumpWallTo(Instant instant) { m_now = instant; }

    /// The machine sleeps: the wall clock runs on, the monotonic one and all deadlines stand still.
    void suspend(Seconds length) { m_now += length; }

    /// How many pieces of work wait, cancelled ones left out.
    [[nodiscard]] std::size_t pendingCount() const;

protected:
    void schedule(std::shared_ptr<ScheduledWork::State> state, MonotonicInstant deadline,
                  Seconds interval) override;

private:
    struct Entry {
        std::shared_ptr<ScheduledWork::State> state;
        Seconds interval;
    };

    Instant m_now;
    MonotonicInstant m_uptime{Seconds{1000.0}};
    std::uint64_t m_sequence = 0;
    std::map<std::pair<MonotonicInstant, std::uint64_t>, Entry> m_entries;
};

} // namespace vantrel::fakes
