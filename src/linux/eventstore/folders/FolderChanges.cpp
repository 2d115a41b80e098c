#include "FolderChanges.h"

#include <linux/eventstore/files/Files.h>
#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <QMetaObject>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds quietTime{0.1};
constexpr Seconds longestDelay{1.0};
constexpr Seconds pollInterval{60.0};

} // namespace

FolderChanges::FolderChanges(MainQueue &queue, std::function<void()> announce,
                             std::shared_ptr<WatchDescriptor> descriptor)
    : m_queue(queue), m_announce(std::move(announce)), m_descriptor(std::move(descriptor)) {}

void FolderChanges::start() {
    if (!m_descriptor)
        m_descriptor = std::make_shared<WatchDescriptor>();
    m_watch = std::make_unique<FolderWatch>(
        [this](const std::optional<std::vector<FolderWatch::Event>> &events) { note(events); },
        m_descriptor);
}

FolderChanges::Changes FolderChanges::take() {
    m_isShortOfWatches = false;
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_changes, Changes{false, {}, {}});
}

void FolderChanges::watch(const QByteArray &folder, const QByteArray &name) {
    if (!m_watch || m_watch->add(folder, name))
        return;
    if (!m_isShortOfWatches && !m_wasShortOfWatches)
        qCWarning(eventStoreLog).noquote()
            << logText(folder)
            << "cannot be watched (fs.inotify.max_user_watches or max_user_instances is reached);"
            << "changes are looked for once a minute";
    m_isShortOfWatches = true;
}

void FolderChanges::watchForPath(const QByteArray &path) {
    // More of the path may have come before its folder was watched.
    constexpr int mostTries = 10;
    std::vector<files::NameInFolder> watched;
    for (int tries = 0; tries < mostTries; ++tries) {
        const auto waypoints = files::waypoints(path);
        if (waypoints == watched)
            return;
        for (const files::NameInFolder &one : waypoints)
            watch(one.folder, one.name);
        watched = waypoints;
    }
}

void FolderChanges::endRound() {
    if (!m_watch)
        return;
    m_watch->sweep();
    if (m_isShortOfWatches == m_wasShortOfWatches)
        return;
    m_wasShortOfWatches = m_isShortOfWatches;
    QMetaObject::invokeMethod(
        &m_receiver, [this, isShort = m_isShortOfWatches] { pollWhen(isShort); },
        Qt::QueuedConnection);
}

void FolderChanges::note(const std::optional<std::vector<FolderWatch::Event>> &events) {
    {
        const std::lock_guard lock(m_mutex);
        if (!events)
            m_changes.isEverything = true;
        for (const auto &event : events.value_or(std::vector<FolderWatch::Event>())) {
            m_changes.paths.insert(event.folder);
            if (!event.name.isEmpty())
                m_changes.paths.insert(event.folder + '/' + event.name);
            if (event.isRewritten)
                m_changes.rewritten[event.folder].push_back(event.name);
        }
    }
    announceSoon();
}

void FolderChanges::announceSoon() {
    const MonotonicInstant uptime = m_queue.uptime();
    if (!m_firstEvent)
        m_firstEvent = uptime;
    const Seconds left = *m_firstEvent + longestDelay - uptime;
    m_announcement = m_queue.after(std::min(quietTime, left), [this] {
        m_firstEvent.reset();
        m_announce();
    });
}

void FolderChanges::pollWhen(bool isShortOfWatches) {
    m_poll.cancel();
    if (!isShortOfWatches)
        return;
    m_poll = m_queue.every(pollInterval, [this] { announceEverything(); });
}

void FolderChanges::tryAgainLater() {
    if (!m_watch)
        return;
    QMetaObject::invokeMethod(
        &m_receiver,
        [this] { m_retry = m_queue.after(pollInterval, [this] { announceEverything(); }); },
        Qt::QueuedConnection);
}

void FolderChanges::announceEverything() {
    {
        const std::lock_guard lock(m_mutex);
        m_changes.isEverything = true;
    }
    m_announce();
}

} // namespace vantrel
