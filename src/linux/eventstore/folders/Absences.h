#pragma once

#include <platform/MainQueue.h>

#include <QObject>
#include <QString>

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <set>

namespace vantrel {

/// Tells which calendars have been missing for a minute. One that is away for a moment, as where a
/// program swaps a folder for another, was not deleted. Made and destroyed on the main thread.
class Absences {
public:
    /// `announce` is called, on the main thread, when an answer may have become different.
    Absences(MainQueue &queue, std::function<void()> announce);

    /// Those of `missing` that were missing in each of the calls of the last minute and longer. On
    /// any thread, one at a time.
    [[nodiscard]] std::set<QString> lasting(const std::set<QString> &missing);

private:
    void wait(std::uint64_t number);

    MainQueue &m_queue;
    const std::function<void()> m_announce;

    // Of the thread that asks.
    std::map<QString, std::uint64_t> m_begun; ///< Number of the wait for each that is missing.
    std::uint64_t m_lastNumber = 0;

    std::atomic<std::uint64_t> m_over = 0;          ///< Number of the last wait that is over.
    std::map<std::uint64_t, ScheduledWork> m_waits; ///< Of the main thread, by number.
    QObject m_receiver; ///< Takes messages to the main thread; those under way go with it.
};

} // namespace vantrel
