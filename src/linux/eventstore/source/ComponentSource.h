#pragma once

#include <linux/eventstore/ical/Window.h>
#include <platform/EventStore.h>
#include <platform/Published.h>
#include <platform/Time.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace vantrel {

/// Tells one version of an item from another. What the numbers mean is the source's own affair.
struct ItemVersion {
    std::int64_t modified =
        0; ///< Grows with time: among equal revisions of an event the later wins.
    std::int64_t size = 0;
    std::uint64_t serial = 0;

    bool operator==(const ItemVersion &) const = default;
};

/// One unit in which a source delivers components: a file, or all components of one UID.
struct SourceItem {
    QByteArray name; ///< Unique within the calendar.
    ItemVersion version;
};

struct SourceCalendar {
    StoreCalendar calendar;
    /// Whether a text may name and colour its calendar, being the whole of it.
    bool isDescribedByText = false;
    /// False when no item has come, gone or changed since this calendar was last asked for.
    bool hasChanges = true;
    /// Items to read again although their version is as before.
    std::vector<QByteArray> rewrittenItems;
    /// The user's own on this calendar, beside those that are theirs everywhere: lower case,
    /// without "mailto:".
    QStringList addresses;
};

/// Which file or folder it is, whatever its paths.
struct PlaceOnDisk {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    auto operator<=>(const PlaceOnDisk &) const = default;
};

/// What a source can tell beside the list of its calendars.
struct SourceKnowledge {
    /// Everything it has is listed. False while it has not been heard, or not in full: calendars
    /// may still come without anybody adding one.
    bool isComplete = false;

    /// How the identifiers of its calendars begin, where it is certain that each of them is listed
    /// and any other was deleted. Empty as long as one may just be out of reach: what counts as
    /// deleted drops out of the user's selection for good, and its meetings are missed.
    QString exhaustedPrefix;

    /// The identifiers of single calendars of which the same is certain.
    std::set<QString> deletedCalendars = {};

    /// Where its calendars lie, by identifier, as far as another source may list a place too.
    std::map<QString, PlaceOnDisk> places = {};

    bool operator==(const SourceKnowledge &) const = default;
};

/// A place that calendars come from. It hands out iCalendar texts and does no calendar arithmetic.
///
/// `changed` belongs to the main thread. `setWindow` and `start` are called by one thread at a
/// time: the main one, unless a source opens another in the background and starts it there. The
/// questions are asked on another thread, one at a time. They may wait for a disk, but not for a
/// service: what a service has not delivered yet is not there yet, and `changed` is announced once
/// it is.
class ComponentSource {
public:
    virtual ~ComponentSource() = default;

    /// The stretch of time that answers have to cover; what lies outside may be left out. Called
    /// before `start` and whenever it moves.
    virtual void setWindow(Window /*window*/) {}

    /// From here on changes are announced. Nothing is read before.
    virtual void start() = 0;

    /// Blocks until all that is there has been delivered once, but not longer than that; for a
    /// question that is asked once. After `start`, on any thread.
    virtual void waitUntilDelivered(Seconds /*limit*/) {}

    /// Announced after an answer may have changed.
    Announcer<> changed;

    /// The calendars as they are, in an order that stays the same while the set does.
    [[nodiscard]] virtual std::vector<SourceCalendar> calendars() = 0;

    /// What can be told beyond the list that was last answered. Nothing, unless a source says more.
    [[nodiscard]] virtual SourceKnowledge knowledge() const { return {}; }

    /// For people, in one sentence: what keeps it from showing all that it should. Empty when
    /// nothing does.
    [[nodiscard]] virtual QString trouble() const { return {}; }

    /// The items of one of those calendars, in any order. Empty when they cannot be had; `changed`
    /// is then announced later, for another try, and so it is for a text.
    [[nodiscard]] virtual std::optional<std::vector<SourceItem>>
    items(const QString &calendarIdentifier) = 0;

    /// The iCalendar text of an item. Empty, with a line in the log, when it cannot be had.
    [[nodiscard]] virtual std::optional<QByteArray> text(const QString &calendarIdentifier,
                                                         const QByteArray &item) = 0;

    /// What the log calls the item.
    [[nodiscard]] virtual QString description(const QString &calendarIdentifier,
                                              const QByteArray &item) const = 0;
};

} // namespace vantrel
