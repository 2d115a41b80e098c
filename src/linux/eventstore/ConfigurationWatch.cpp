#include "ConfigurationWatch.h"

#include <linux/eventstore/files/Files.h>

#include <QFile>

#include <utility>

namespace vantrel {

ConfigurationWatch::ConfigurationWatch(MainQueue &queue, const QStringList &paths,
                                       std::function<void()> report)
    : m_report(std::move(report)), m_changes(queue, [this] {
          watch();
          m_report();
      }) {
    for (const QString &path : paths)
        m_paths.push_back(files::absolute(QFile::encodeName(path)));
    m_changes.start();
    watch();
}

/// Anew after each change: folders on the way may have come, gone, or become links.
void ConfigurationWatch::watch() {
    (void)m_changes.take();
    for (const QByteArray &path : m_paths)
        m_changes.watchForPath(path);
    m_changes.endRound();
}

} // namespace vantrel
