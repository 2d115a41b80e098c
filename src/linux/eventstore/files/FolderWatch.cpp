#include "FolderWatch.h"

#include <sys/inotify.h>

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

FolderWatch::FolderWatch(Report report, std::shared_ptr<WatchDescriptor> descriptor)
    : m_report(std::move(report)), m_descriptor(std::move(descriptor)) {
    m_descriptor->m_watches.insert(this);
}

FolderWatch::~FolderWatch() {
    m_descriptor->m_watches.erase(this);
    const std::lock_guard lock(m_descriptor->m_mutex);
    for (const auto &[folder, interests] : m_folders)
        letGo(folder);
}

bool FolderWatch::add(const QByteArray &folder, const QByteArray &name) {
    for (;;) {
        std::unique_lock lock(m_descriptor->m_mutex);
        const std::uint64_t endings = m_descriptor->m_endings;
        // Not under the lock, which the main thread takes too: looking up a folder on a disk that
        // does not answer may take for ever.
        lock.unlock();
        const int watch =
            ::inotify_add_watch(m_descriptor->m_descriptor, folder.constData(), watchedEvents);
        if (watch < 0)
            return errno != ENOSPC && errno != EBADF && errno != ENOMEM;
        lock.lock();
        if (m_descriptor->m_endings != endings)
            continue; // This may have been one that another was letting go of meanwhile.
        m_descriptor->m_holders[watch].insert(this);
        Interest &interest = m_folders[watch].added[folder];
        if (name.isEmpty())
            interest.isWhole = true;
        else
            interest.names.insert(name);
        return true;
    }
}

void FolderWatch::sweep() {
    const std::lock_guard lock(m_descriptor->m_mutex);
    for (auto folder = m_folders.begin(); folder != m_folders.end();) {
        if (folder->second.added.empty()) {
            letGo(folder->first);
            folder = m_folders.erase(folder);
        } else {
            folder->second.former = std::exchange(folder->second.added, {});
            ++folder;
        }
    }
}

void FolderWatch::letGo(int folder) {
    const auto holders = m_descriptor->m_holders.find(folder);
    if (holders == m_descriptor->m_holders.end() || holders->second.erase(this) == 0 ||
        !holders->second.empty())
        return;
    ::inotify_rm_watch(m_descriptor->m_descriptor, folder);
    m_descriptor->m_holders.erase(holders);
    ++m_descriptor->m_endings;
}

bool FolderWatch::Interest::covers(const QByteArray &name) const {
    return name.isEmpty() || (isWhole && !isNeverMeant(name)) || names.contains(name);
}

void FolderWatch::take(const inotify_event &event, std::vector<Event> &events) {
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
