#include "ManualMainQueue.h"

#include <algorithm>

namespace vantrel::fakes {

void ManualMainQueue::advance(Seconds step) {
    const Grid end = m_uptime + grid(step);
    while (!m_entries.empty() && m_entries.begin()->first.first <= end) {
        const auto first = m_entries.begin();
        const Grid deadline = first->first.first;
        const Entry entry = std::move(first->second);
        m_entries.erase(first);
        if (entry.state->isCancelled)
            continue;
        if (deadline > m_uptime) {
            m_now += deadline - m_uptime;
            m_uptime = deadline;
        }
        if (entry.interval > Seconds::zero()) {
            schedule(entry.state, MonotonicInstant{deadline + entry.interval}, entry.interval);
            const auto work = entry.state->work;
            work();
        } else {
            const auto work = std::move(entry.state->work);
            work();
        }
    }
    m_now += end - m_uptime;
    m_uptime = end;
}

std::size_t ManualMainQueue::pendingCount() const {
    return static_cast<std::size_t>(
        std::count_if(m_entries.cbegin(), m_entries.cend(),
                      [](const auto &entry) { return !entry.second.state->isCancelled; }));
}

void ManualMainQueue::schedule(std::shared_ptr<ScheduledWork::State> state,
                               MonotonicInstant deadline, Seconds interval) {
    m_entries.emplace(std::pair{grid(deadline.time_since_epoch()), m_sequence++},
                      Entry{std::move(state), interval});
}

} // namespace vantrel::fakes
