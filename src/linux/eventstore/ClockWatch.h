#pragma once

#include <linux/eventstore/files/FolderWatch.h>
#include <platform/MainQueue.h>

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <functional>
#include <memory>

namespace vantrel {

/// The calls of the kernel that tell when the clock is set.
struct TimerCalls {
    std::function<int(int clock, int flags)> create = &::timerfd_create;
    std::function<int(int timer, int flags, const itimerspec *deadline, itimerspec *former)> arm =
        &::timerfd_settime;
    std::function<ssize_t(int timer, void *bytes, std::size_t size)> read = &::read;
};

/// Notices what moves wall-clock time other than its passing: the clock is set, the machine wakes
/// from sleep, the system's time zone changes. Needs no service: the kernel tells of the first two
/// and the zone is a file. Where the kernel does not, both clocks are compared now and then. Main
/// thread only.
class ClockWatch {
public:
    /// `zoneFolder` is where the system's time zone is kept under the name "localtime". `queue`
    /// outlives the watch.
    ClockWatch(MainQueue &queue, std::function<void()> report,
               const QByteArray &zoneFolder = "/etc", TimerCalls calls = {});
    ClockWatch(const ClockWatch &) = delete;
    ClockWatch &operator=(const ClockWatch &) = delete;
    ~ClockWatch();

private:
    [[nodiscard]] bool arm();
    void read();
    void compareInstead(const char *reason);
    void compare();
    [[nodiscard]] Seconds lead() const;

    MainQueue &m_queue;
    const std::function<void()> m_report;
    FolderWatch m_zone;
    const TimerCalls m_calls;
    int m_timer = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    ScheduledWork m_comparison;
    Seconds m_lead{}; ///< Of the wall clock over the other, when they were compared last.
};

} // namespace vantrel
