#pragma once

#include <platform/EventStore.h>
#include <platform/MainQueue.h>

#include <functional>

namespace vantrel {

/// Turns a burst of change notices of one store into a single call of `onChange`, made once the
/// burst has settled. Main thread only.
class CalendarChangeMonitor {
public:
    /// `store` and `queue` must outlive this object. `onChange` runs on the queue,
    /// `debounceInterval` after the last notice of a burst; it may destroy the monitor.
    CalendarChangeMonitor(EventStore &store, Seconds debounceInterval, MainQueue &queue,
                          std::function<void()> onChange);
    ~CalendarChangeMonitor();
    CalendarChangeMonitor(const CalendarChangeMonitor &) = delete;
    CalendarChangeMonitor &operator=(const CalendarChangeMonitor &) = delete;

    /// Harmless when started already.
    void start();

    /// No `onChange` runs after it returns, not even one that was due. Harmless when stopped.
    void stop();

private:
    void scheduleCoalescedChange();

    EventStore &m_store;
    Seconds m_debounceInterval;
    MainQueue &m_queue;
    std::function<void()> m_onChange;
    Subscription m_observer;     ///< Set while started.
    ScheduledWork m_pendingWork; ///< Stays behind after it has run.
};

} // namespace vantrel
