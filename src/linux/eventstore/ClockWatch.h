#pragma once

#include <linux/eventstore/files/FolderWatch.h>
#include <platform/MainQueue.h>

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace vantrel {

/// Notices what moves wall-clock time other than its passing: the clock is set, the machine wakes
/// from sleep, the system's time zone changes. Needs no service: the kernel tells of the first two
/// and the zone is a file. Where the kernel does not, both clocks are compared now and then. Main
/// thread only.
class ClockWatch {
public:
    /// `zoneFolder` is where the system's time zone is kept under the name "localtime". `queue`
    /// outlives the watch.
    ClockWatch(MainQueue &queue, std::function<void()> report,
               const QByteArray &zoneFolder = "/etc");
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
    int m_timer = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    ScheduledWork m_comparison;
    Seconds m_lead{}; ///< Of the wall clock over the other, when they were compared last.
};

} // namespace vantrel
