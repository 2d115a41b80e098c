#include "CalendarChangeMonitor.h"

#include <utility>

namespace vantrel {

CalendarChangeMonitor::CalendarChangeMonitor(EventStore &store, Seconds debounceInterval,
                                             MainQueue &queue, std::function<void()> onChange)
    : m_store(store),
      m_debounceInterval(debounceInterval),
      m_queue(queue),
      m_onChange(std::move(onChange)) {}

CalendarChangeMonitor::~CalendarChangeMonitor() {
    stop();
}

void CalendarChangeMonitor::start() {
    if (m_observer)
        return;
    m_observer = m_store.changed.subscribe([this] { scheduleCoalescedChange(); });
}

void CalendarChangeMonitor::stop() {
    m_observer.reset();
    m_pendingWork.cancel();
}

void CalendarChangeMonitor::scheduleCoalescedChange() {
    m_pendingWork.cancel();
    // The work holds the callback itself: one that destroys the monitor goes on running.
    m_pendingWork = m_queue.after(m_debounceInterval, m_onChange);
}

} // namespace vantrel
