#pragma once

#include <linux/eventstore/folders/FolderChanges.h>
#include <platform/MainQueue.h>

#include <QByteArray>
#include <QString>

#include <functional>

namespace vantrel {

/// Notices that a file is written, put in place, or taken away, where symbolic links lead to as
/// well; the folders on the way need not exist yet. Main thread only.
class ConfigurationWatch {
public:
    /// `report` is called once things have quietened down. `queue` outlives the watch.
    ConfigurationWatch(MainQueue &queue, const QString &path, std::function<void()> report);

private:
    void watch();

    const QByteArray m_path;
    const std::function<void()> m_report;
    FolderChanges m_changes;
};

} // namespace vantrel
