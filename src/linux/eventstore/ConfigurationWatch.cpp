#include "ConfigurationWatch.h"

#include <linux/eventstore/files/Files.h>

#include <QFile>

#include <utility>

namespace vantrel {

ConfigurationWatch::ConfigurationWatch(MainQueue &queue, const QString &path,
                                       std::function<void()> report)
    : m_path(files::absolute(QFile::encodeName(path))),
      m_report(std::move(report)),
      m_changes(queue, [this] {
          watch();
          m_report();
      }) {
    m_changes.start();
    watch();
}

/// Anew after each change: folders on the way may have come, gone, or become links.
void ConfigurationWatch::watch() {
    (void)m_changes.take();
    m_changes.watchForPath(m_path);
    m_changes.endRound();
}

} // namespace vantrel
