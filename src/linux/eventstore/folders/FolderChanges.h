#pragma once

#include <linux/eventstore/files/FolderWatch.h>
#include <platform/MainQueue.h>

#include <QByteArray>
#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

namespace vantrel {

/// Keeps what happens in folders until somebody looks, and says so once things have quietened
/// down. Made and destroyed on the main thread, where it also announces.
class FolderChanges {
public:
    struct Changes {
        bool isEverything = true;   ///< Anything may have happened; the rest is then not filled in.
        std::set<QByteArray> paths; ///< Folders in which something happened, and what it was.
        std::map<QByteArray, std::vector<QByteArray>> rewritten; ///< Names of files, by folder.
    };

    /// `announce` is called after changes: 0.1 s after the last of them, but not later than 1 s
    /// after the first. `descriptor` may be shared with other watches.
    FolderChanges(MainQueue &queue, std::function<void()> announce,
                  std::shared_ptr<WatchDescriptor> descriptor = nullptr);

    /// From here on folders can be watched.
    void start();

    /// From any thread: what has happened since this was called before; everything at first.
    [[nodiscard]] Changes take();

    /// From any thread, between `take` and `endRound`: watches a folder, or one name in it. What
    /// was not asked for again by the end of the round is no longer watched. Where the system
    /// allows no more watches, everything counts as changed once a minute instead.
    void watch(const QByteArray &folder, const QByteArray &name = {});
    void endRound();

    /// As `watch`: for a path to come, go or lead elsewhere, in its folder or in the nearest one
    /// that exists, and where the symbolic links on the way lie.
    void watchForPath(const QByteArray &path);

    /// From any thread: everything counts as changed a minute from now, since something could not
    /// be read that may be read then.
    void tryAgainLater();

private:
    void note(const std::optional<std::vector<FolderWatch::Event>> &events);
    void announceSoon();
    void pollWhen(bool isShortOfWatches);
    void announceEverything();

    MainQueue &m_queue;
    const std::function<void()> m_announce;
    std::shared_ptr<WatchDescriptor> m_descriptor; ///< Null for one of its own.
    std::unique_ptr<FolderWatch> m_watch;
    ScheduledWork m_announcement;
    std::optional<MonotonicInstant> m_firstEvent; ///< Of those that are not announced yet.
    ScheduledWork m_poll;
    ScheduledWork m_retry;

    std::mutex m_mutex;
    Changes m_changes; ///< Guarded by the mutex.

    bool m_isShortOfWatches = false; ///< Of the thread that watches, in this round.
    bool m_wasShortOfWatches = false;
    QObject m_receiver; ///< Takes messages to the main thread; those under way go with it.
};

} // namespace vantrel
