#include "QtMainQueue.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace vantrel {

namespace {

/// The timer counts milliseconds in an int, 24 days at most. A longer wait is made in stretches.
constexpr std::chrono::milliseconds longestStretch{1'000'000'000};

constexpr std::size_t smallestSweep = 64;

/// Rounded up, so that the timer never fires ahead of the deadline.
std::chrono::milliseconds stretchFor(Seconds wait) {
    if (wait >= longestStretch)
        return longestStretch;
    return std::chrono::ceil<std::chrono::milliseconds>(std::max(wait, Seconds::zero()));
}

/// The first multiple of the interval behind `deadline` that still lies ahead.
MonotonicInstant following(MonotonicInstant deadline, Seconds interval, MonotonicInstant now) {
    const double missed = std::floor(std::max((now - deadline) / interval, 0.0));
    return deadline + (missed + 1.0) * interval;
}

} // namespace

QtMainQueue::QtMainQueue() : m_sweepAt(smallestSweep) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer); // A coarse one may be late by a twentieth of its wait.
    QObject::connect(&m_timer, &QTimer::timeout, [this] { runDue(); });
}

QtMainQueue::~QtMainQueue() = default;

Instant QtMainQueue::now() const {
    return std::chrono::system_clock::now();
}

MonotonicInstant QtMainQueue::uptime() const {
    return std::chrono::steady_clock::now();
}

void QtMainQueue::schedule(std::shared_ptr<ScheduledWork::State> state, MonotonicInstant deadline,
                           Seconds interval) {
    sweep();
    insert({std::move(state), interval}, deadline);
    arm();
}

void QtMainQueue::insert(Entry entry, MonotonicInstant deadline) {
    m_entries.emplace(Place{deadline, m_sequence++}, std::move(entry));
}

/// Cancelled work says nothing to the queue. It is dropped when it stands in front, and all of it
/// each time the queue has doubled, so that planning anew over and over costs no memory.
void QtMainQueue::sweep() {
    while (!m_entries.empty() && m_entries.begin()->second.state->isCancelled)
        m_entries.erase(m_entries.begin());
    if (m_entries.size() < m_sweepAt)
        return;
    std::erase_if(m_entries, [](const auto &entry) { return entry.second.state->isCancelled; });
    m_sweepAt = std::max(smallestSweep, 2 * m_entries.size());
}

void QtMainQueue::arm() {
    if (m_entries.empty())
        m_timer.stop();
    else
        m_timer.start(stretchFor(m_entries.begin()->first.first - uptime()));
}

/// Work that is handed in meanwhile waits for the next turn, even without a delay: whatever its
/// own moment, the loop gets to breathe in between.
void QtMainQueue::runDue() {
    const MonotonicInstant turn = uptime();
    const std::uint64_t newcomer = m_sequence;
    while (!m_entries.empty()) {
        const auto first = m_entries.begin();
        const auto [deadline, sequence] = first->first;
        if (deadline > turn || sequence >= newcomer)
            break;
        Entry entry = std::move(first->second);
        m_entries.erase(first);
        if (!entry.state->isCancelled)
            run(std::move(entry), deadline);
    }
    sweep();
    arm();
}

void QtMainQueue::run(Entry entry, MonotonicInstant deadline) {
    const auto state = entry.state;
    const bool repeats = entry.interval > Seconds::zero();
    if (repeats)
        insert({state, entry.interval}, following(deadline, entry.interval, uptime()));
    arm(); // The work may spin a loop of its own, in which the others go on.

    // The work may drop its own handle, or hand in the very state's successor: it runs from here.
    const auto work = repeats ? state->work : std::move(state->work);
    work();
}

} // namespace vantrel
