#pragma once

#include <linux/eventstore/folders/FolderChanges.h>
#include <platform/MainQueue.h>

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <vector>

namespace vantrel {

/// Notices that a file is written, put in place, or taken away, where symbolic links lead to as
/// well; the folders on the way need not exist yet. Main thread only.
class ConfigurationWatch {
public:
    /// `report` is called once things have quietened down. `queue` outlives the watch.
    ConfigurationWatch(MainQueue &queue, const QStringList &paths, std::function<void()> report);

private:
    void watch();

    std::vector<QByteArray> m_paths;
    const std::function<void()> m_report;
    FolderChanges m_changes;
};

} // namespace vantrel
