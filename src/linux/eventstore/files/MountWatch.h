#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace vantrel {

/// Notices that something is mounted or taken off anywhere, of which inotify does not tell: a disk
/// may come to lie over a folder that is watched. Main thread only.
class MountWatch {
public:
    explicit MountWatch(const std::function<void()> &report);
    MountWatch(const MountWatch &) = delete;
    MountWatch &operator=(const MountWatch &) = delete;
    ~MountWatch();

private:
    int m_table = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vantrel
