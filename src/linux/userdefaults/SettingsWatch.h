#pragma once

#include <platform/MainQueue.h>

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

#include <functional>

namespace vantrel {

/// Tells when a file may have changed: when it is written to, replaced, made or removed, also where
/// its path is a symbolic link. Main thread only.
class SettingsWatch {
public:
    /// `changed` is called from the event loop once the file has been quiet for a moment, also
    /// after changes of the caller's own.
    SettingsWatch(MainQueue &queue, QString path, std::function<void()> changed);

private:
    void look();

    MainQueue &m_queue;
    const QString m_path;
    const std::function<void()> m_changed;
    ScheduledWork m_news;
    QFileSystemWatcher m_watcher;
    QObject m_life; ///< Ends what is connected to it before the members above go.
};

} // namespace vantrel
