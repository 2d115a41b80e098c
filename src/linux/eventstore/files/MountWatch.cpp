#include "MountWatch.h"

#include <fcntl.h>
#include <unistd.h>

namespace vantrel {

MountWatch::MountWatch(const std::function<void()> &report)
    : m_table(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)) {
    if (m_table < 0)
        return;
    // The kernel calls a change of the table exceptional, and says so once; nothing has to be read.
    m_notifier = std::make_unique<QSocketNotifier>(m_table, QSocketNotifier::Exception);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), report);
}

MountWatch::~MountWatch() {
    m_notifier.reset();
    if (m_table >= 0)
        ::close(m_table);
}

} // namespace vantrel
