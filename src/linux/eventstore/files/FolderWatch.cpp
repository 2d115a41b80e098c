#include "FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vantrel {

namespace {

constexpr std::uint32_t watchedEvents = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM |
                                        IN_MOVED_TO | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF |
                                        IN_ONLYDIR;

/// Names that no calendar and none of its files can have.
bool isNeverMeant(const QByteArray &name) {
    return name.startsWith('.') || name.endsWith(".tmp");
}

} // namespace

FolderWatch::FolderWatch(Report report)
    : m_report(std::move(report)), m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (m_descriptor < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { read(); });
}

FolderWatch::~FolderWatch() {
    m_notifier.reset();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool FolderWatch::add(const QByteArray &folder, const QByteArray &name) {
    // Not under the lock, which the main thread takes too: looking up a folder on a disk that does
    // not answer may take for ever.
    const int watch = ::inotify_add_watch(m_descriptor, folder.constData(), watchedEvents);
    if (watch < 0)
        return errno != ENOSPC && errno != EBADF && errno != ENOMEM;
    const std::lock_guard lock(m_mutex);
    Interest &interest = m_folders[watch].added[folder];
    if (name.isEmpty())
        interest.isWhole = true;
    else
        interest.names.insert(name);
    return true;
}

void FolderWatch::sweep() {
    const std::lock_guard lock(m_mutex);
    for (auto folder = m_folders.begin(); folder != m_folders.end();) {
        if (folder->second.added.empty()) {
            ::inotify_rm_watch(m_descriptor, folder->first);
            folder = m_folders.erase(folder);
        } else {
            folder->second.former = std::exchange(folder->second.added, {});
            ++folder;
        }
    }
}

bool FolderWatch::Interest::covers(const QByteArray &name) const {
    return name.isEmpty() || (isWhole && !isNeverMeant(name)) || names.contains(name);
}

void FolderWatch::read() {
    alignas(inotify_event) char buffer[16 * 1024];
    std::vector<Event> events;
    bool isOverflown = false;
    for (;;) {
        const auto length = ::read(m_descriptor, buffer, sizeof buffer);
        if (length <= 0)
            break;
        for (ssize_t at = 0; at < length;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
            isOverflown = isOverflown || (event->mask & IN_Q_OVERFLOW) != 0;
            take(*event, events);
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (isOverflown)
        m_report(std::nullopt);
    else if (!events.empty())
        m_report(events);
}

void FolderWatch::take(const inotify_event &event, std::vector<Event> &events) {
    const std::lock_guard lock(m_mutex);
    const auto folder = m_folders.find(event.wd);
    if (folder == m_folders.end())
        return;
    const QByteArray name = event.len > 0 ? QByteArray(event.name) : QByteArray();
    const bool isRewritten = (event.mask & (IN_CLOSE_WRITE | IN_MOVED_TO)) != 0;
    std::set<QByteArray> paths;
    for (const Interests *interests : {&folder->second.added, &folder->second.former}) {
        for (const auto &[path, interest] : *interests) {
            if (interest.covers(name) && paths.insert(path).second)
                events.push_back({path, name, isRewritten});
        }
    }
    if ((event.mask & IN_IGNORED) != 0)
        m_folders.erase(folder);
}

} // namespace vantrel
