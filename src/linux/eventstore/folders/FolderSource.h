#pragma once

#include "Absences.h"
#include "FolderChanges.h"

#include <linux/eventstore/files/Files.h>
#include <linux/eventstore/source/ComponentSource.h>

#include <QHash>
#include <QSet>
#include <QString>

#include <map>
#include <memory>
#include <optional>
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

    bool operator==(const FolderRoot &) const = default;
};

/// Calendars from folders in the vdir layout: one folder a calendar, one `.ics` file an item, the
/// files `displayname` and `color` to describe it. Files whose names end in anything else, or
/// begin with a dot, are left alone; folders within calendar folders too. A place that two names
/// below the root lead to is one calendar.
///
/// What is out of reach stays listed as it was known last, and without changes: a place that cannot
/// be read, one that lay on a disk that is no longer mounted, and what a link leads to.
class FolderSource : public ComponentSource {
public:
    /// `descriptor` may be shared with other sources.
    FolderSource(MainQueue &queue, FolderRoot root,
                 std::shared_ptr<WatchDescriptor> descriptor = nullptr);

    void start() override { m_changes.start(); }

    [[nodiscard]] std::vector<SourceCalendar> calendars() override;
    [[nodiscard]] SourceKnowledge knowledge() const override { return m_knowledge; }
    [[nodiscard]] QString trouble() const override;
    [[nodiscard]] std::optional<std::vector<SourceItem>>
    items(const QString &calendarIdentifier) override;
    [[nodiscard]] std::optional<QByteArray> text(const QString &calendarIdentifier,
                                                 const QByteArray &item) override;
    [[nodiscard]] QString description(const QString &calendarIdentifier,
                                      const QByteArray &item) const override;

private:
    /// Where a calendar lies.
    struct Place {
        QByteArray path;    ///< Of a folder or a file, without symbolic links.
        PlaceOnDisk onDisk; ///< Another one where a disk was mounted over it; {} while unknown.
        bool isFile = false;
        std::set<QByteArray> linkedFiles; ///< What symbolic links in the folder lead to.
        bool isAway = false;              ///< Out of reach: the rest is what was known last.

        [[nodiscard]] QByteArray folder() const { return isFile ? files::folderOf(path) : path; }
        [[nodiscard]] QByteArray pathOf(const QByteArray &item) const {
            return isFile ? path : path + '/' + item;
        }
    };

    /// One look at the root.
    struct Round {
        FolderChanges::Changes changes;
        std::set<PlaceOnDisk> seen;
        std::vector<SourceCalendar> calendars;
        QHash<QString, Place> places; ///< By calendar identifier.
        std::map<QString, PlaceOnDisk> placesOnDisk;
        /// Identifiers of the calendars that are there, be they listed under another one.
        QSet<QString> present;
        /// The root, or what a link in it leads to, is not missing and can be read.
        bool isComplete = true;
        /// Nothing looks like a place where something is to be mounted, either.
        bool isCertain = true;
    };

    void lookAtRoot(Round &round);
    void missRoot(const QByteArray &path, Round &round);
    void lookAtFolder(const QByteArray &path, const StoreSource &source, Round &round);
    void addCalendar(const StoreSource &source, const QByteArray &path, bool isFile, Round &round);
    void keep(const SourceCalendar &calendar, Round &round);
    [[nodiscard]] const SourceCalendar *listedAt(const QByteArray &path) const;
    [[nodiscard]] std::set<QString> deletedCalendars(const Round &round);
    void passOver(const QByteArray &path, int error, const char *what, Round &round);
    void passOverAndKeep(const QByteArray &path, int error, const char *what, Round &round);
    void watchLinks(const Place &place);
    void noteTrouble(const QByteArray &path, int error, const char *what);

    FolderChanges m_changes;
    Absences m_absences;

    // Of the thread that asks.
    const FolderRoot m_root;
    QHash<QString, Place> m_places;       ///< By calendar identifier.
    std::vector<SourceCalendar> m_listed; ///< As they were answered last.
    /// Where the root was found last, and the folder that it lies in.
    std::optional<PlaceOnDisk> m_rootOnDisk;
    std::optional<PlaceOnDisk> m_aboveOnDisk;
    QSet<QString> m_everListed; ///< Identifiers of calendars, since the start.
    SourceKnowledge m_knowledge;
    QHash<QByteArray, int> m_troubles; ///< Errors that stand in the log already, by path.
};

} // namespace vantrel
