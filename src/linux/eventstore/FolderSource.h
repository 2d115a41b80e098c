#pragma once

#include "ComponentSource.h"
#include "Files.h"
#include "FolderWatch.h"

#include <platform/MainQueue.h>

#include <QHash>

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

namespace vantrel {

/// A place in the file system where calendars lie: a calendar folder (files in it are items), a
/// folder of calendar folders, or one file that is a calendar.
struct FolderRoot {
    QString path;
    QString title; ///< As the user knows it; the last part of the path when empty.
    /// A folder of calendar folders even as long as it is empty; it may well be missing.
    bool isCalendarHome = false;
};

/// Calendars from folders in the vdir layout: one folder a calendar, one `.ics` file an item, the
/// files `displayname` and `color` to describe it. Files whose names end in anything else, or
/// begin with a dot, are left alone.
class FolderSource : public ComponentSource {
public:
    FolderSource(MainQueue &queue, std::vector<FolderRoot> roots);
    ~FolderSource() override;

    void start() override;
    [[nodiscard]] std::vector<SourceCalendar> calendars() override;
    [[nodiscard]] std::optional<std::vector<SourceItem>>
    items(const QString &calendarIdentifier) override;
    [[nodiscard]] std::optional<QByteArray> text(const QString &calendarIdentifier,
                                                 const QByteArray &item) override;
    [[nodiscard]] QString description(const QString &calendarIdentifier,
                                      const QByteArray &item) const override;

private:
    struct Place {
        QByteArray path; ///< Of a folder or a file, without symbolic links.
        bool isFile = false;
    };

    /// What has happened in folders since the questions were last asked.
    struct Changes {
        bool isEverything = true;
        std::set<QByteArray> folders;
        std::map<QByteArray, std::vector<QByteArray>> rewritten; ///< Names by folder.
    };

    /// One round of looking at all roots.
    struct Round {
        Changes changes;
        std::set<std::pair<std::uint64_t, std::uint64_t>> seen; ///< Device and inode.
        std::vector<SourceCalendar> calendars;
    };

    void lookAt(const FolderRoot &root, Round &round);
    void lookAtFolder(const FolderRoot &root, const QByteArray &path, Round &round);
    void addCalendar(const StoreSource &source, const QByteArray &path, bool isFile, Round &round);
    void describeFolder(StoreCalendar &calendar, const QByteArray &path);
    void watch(const QByteArray &folder, const QByteArray &name = {});
    void watchForPath(const QByteArray &path);

    void noteEvents(const std::optional<std::vector<FolderWatch::Event>> &events);
    void announceSoon();
    void announceNow();
    void pollSlowly();
    void noteTrouble(const QByteArray &path, int error, const char *what);

    MainQueue &m_queue;
    const std::vector<FolderRoot> m_roots;
    std::unique_ptr<FolderWatch> m_watch;
    ScheduledWork m_announcement;
    ScheduledWork m_poll;
    std::optional<MonotonicInstant> m_firstEvent; ///< Of those not announced yet.

    std::mutex m_mutex;
    Changes m_changes; ///< Guarded by the mutex.

    // Of the thread that asks.
    QHash<QString, Place> m_places;
    QHash<QByteArray, int> m_troubles; ///< Errors that stand in the log, by path.
    std::atomic<bool> m_isShortOfWatches = false;
};

} // namespace vantrel
