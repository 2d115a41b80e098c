#pragma once

#include "CalendarOccurrences.h"
#include "ItemList.h"

#include <linux/eventstore/ical/CalendarText.h>
#include <linux/eventstore/ical/ComponentsByUid.h>
#include <linux/eventstore/ical/SeriesReader.h>
#include <linux/eventstore/source/ComponentSource.h>

#include <QStringList>

#include <atomic>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace vantrel {

class SharedSeries;
class ZoneRegistry;

/// What reading and expanding needs besides the text.
struct CatalogContext {
    ComponentSource &source;
    ZoneRegistry &zones;
    const Zone &userZone;
    Window window;
    const QStringList &addresses;
    const std::atomic<bool> &isStopping; ///< Set from another thread: leave as soon as possible.
};

/// What one calendar holds: for each item its version, for each UID when it next shows, and for
/// those that show within the window their occurrences. Texts of the others are not kept; they are
/// read again when the window reaches them. Used by one thread at a time.
///
/// An item that cannot be read, or that ends in the middle, keeps what it showed before until it
/// reads again or is gone; one that never was whole shows the events that are,
/// as they are in each of its versions. So do all that share a UID with it. Of several
/// events with one UID (and one recurrence id) the later revision shows, by SEQUENCE, then by
/// LAST-MODIFIED or DTSTAMP, then by the version of its item.
class CalendarCatalog {
public:
    /// Brings the catalog in line with the source. False when nothing was different.
    bool update(const SourceCalendar &calendar, const CatalogContext &context);

    /// Moves on to a later window.
    void roll(const CatalogContext &context);

    /// Reads everything again, for an earlier window or another zone.
    void rebuild(const CatalogContext &context);

    [[nodiscard]] std::shared_ptr<const CalendarOccurrences> occurrences() const;

    /// An item whose text was no whole calendar when it was read last; empty when none was.
    [[nodiscard]] std::optional<QByteArray> brokenItem() const;

private:
    using ItemIndex = ItemList::Index;

    /// Whether what cannot be read is logged. It was, when it has been read before.
    enum class Log { problems, nothing };

    /// One UID in one item. Items that share a UID have an entry each; the occurrences of all of
    /// them are with the first.
    struct Entry {
        UidHash uid;
        UtcSeconds due;
        std::shared_ptr<const ShownSeries> shown;
        ItemIndex item;
        bool isFresh; ///< Read just now, by itself.
    };

    static bool isBefore(const Entry &entry, UidHash uid) { return entry.uid < uid; }

    bool adopt(const SourceCalendar &calendar);
    bool adoptAddresses(const SourceCalendar &calendar, const CatalogContext &context);
    void describe();
    std::vector<Entry> moveEntries(const std::vector<ItemIndex> &moved);
    void readItems(const std::vector<ItemIndex> &items, std::vector<Entry> lost,
                   const CatalogContext &context, Log log);
    std::vector<Entry> readAnew(const std::vector<ItemIndex> &items, std::vector<bool> &isReplaced,
                                const CatalogContext &context, Log log);
    void expandShared(std::vector<Entry> lost, const CatalogContext &context, Log log);
    bool expandRun(std::vector<Entry>::iterator first, std::vector<Entry>::iterator last,
                   SharedSeries &shared, const CatalogContext &context, Problems &problems);
    void keepRun(std::vector<Entry>::iterator first, std::vector<Entry>::iterator last,
                 const std::vector<Entry> &lost);
    void dropPast(UtcSeconds from);

    [[nodiscard]] std::optional<CalendarText> read(ItemIndex item,
                                                   const CatalogContext &context) const;
    [[nodiscard]] std::optional<CalendarText> readShared(ItemIndex item,
                                                         const CatalogContext &context);
    [[nodiscard]] SeriesReader readerFor(const CatalogContext &context) const;
    [[nodiscard]] QString description(ItemIndex item, const CatalogContext &context) const;

    StoreCalendar m_given;   ///< As the source describes it.
    QStringList m_addresses; ///< The user's own: everywhere, and on this calendar.
    QString m_textName;      ///< As the text does, when it may; empty otherwise.
    QString m_textColor;
    bool m_isDescribedByText = false;
    bool m_isIncomplete = false; ///< Something could not be read: ask again, changed or not.
    std::shared_ptr<const StoreCalendar> m_calendar;
    ItemList m_items;
    std::set<QByteArray> m_brokenItems; ///< Names of those whose text was no whole calendar.
    std::vector<Entry> m_entries;       ///< By UID, then item.
};

} // namespace vantrel
