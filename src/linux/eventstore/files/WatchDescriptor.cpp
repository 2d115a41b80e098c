#include "WatchDescriptor.h"

#include "FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <optional>
#include <vector>

namespace vantrel {

WatchDescriptor::WatchDescriptor() : m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (m_descriptor < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { read(); });
}

WatchDescriptor::~WatchDescriptor() {
    m_notifier.reset();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void WatchDescriptor::read() {
    const auto self = shared_from_this(); // A report may drop the last watch.
    alignas(inotify_event) char buffer[16 * 1024];
    std::map<FolderWatch *, std::vector<FolderWatch::Event>> events;
    bool isOverflown = false;
    for (;;) {
        const auto length = ::read(m_descriptor, buffer, sizeof buffer);
        if (length <= 0)
            break;
        const std::lock_guard lock(m_mutex);
        for (ssize_t at = 0; at < length;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
            isOverflown = isOverflown || (event->mask & IN_Q_OVERFLOW) != 0;
            if (const auto holders = m_holders.find(event->wd); holders != m_holders.end()) {
                for (FolderWatch *const watch : holders->second)
                    watch->take(*event, events[watch]);
                if ((event->mask & IN_IGNORED) != 0)
                    m_holders.erase(holders);
            }
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    const std::set<FolderWatch *> watches = m_watches;
    for (FolderWatch *const watch : watches) {
        if (!m_watches.contains(watch))
            continue;
        if (isOverflown)
            watch->m_report(std::nullopt);
        else if (const auto found = events.find(watch);
                 found != events.end() && !found->second.empty())
            watch->m_report(found->second);
    }
}

} // namespace vantrel
