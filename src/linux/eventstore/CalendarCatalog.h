#pragma once

#include "CalendarOccurrences.h"
#include "ComponentReader.h"
#include "ComponentSource.h"

#include <QStringList>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

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
/// reads again or is gone; one that never was whole shows the events that are. Of several
/// events with one UID (and one recurrence id) the later revision shows, by SEQUENCE, then by
/// LAST-MODIFIED or DTSTAMP, then by the version of its item.
class CalendarCatalog {
public:
    /// Brings the catalog in line with the source. False when nothing was different.
    bool update(const SourceCalendar &calendar, const CatalogContext &context);

    /// Moves on to a later window. False when nothing else shows in it.
    bool roll(const CatalogContext &context);

    /// Reads everything again, for an earlier window or another zone.
    void rebuild(const CatalogContext &context);

    [[nodiscard]] std::shared_ptr<const CalendarOccurrences> occurrences() const;

private:
    using ItemIndex = std::uint32_t;
    using Uid = std::uint64_t; ///< Hash of a UID.

    /// Whether what cannot be read is logged. It was, when it has been read before.
    enum class Log { problems, nothing };

    struct Item {
        QByteArray name;
        ItemVersion version;
    };

    /// One UID in one item. Items that share a UID have an entry each; the occurrences of all of
    /// them are with the first.
    struct Entry {
        Uid uid;
        UtcSeconds due;
        std::shared_ptr<const ShownSeries> shown;
        ItemIndex item;
        bool isFresh; ///< Read just now, by itself.
    };

    bool adopt(const SourceCalendar &calendar);
    std::vector<ItemIndex> takeItems(std::vector<SourceItem> items,
                                     const std::vector<QByteArray> &rewritten,
                                     std::vector<Uid> &touched);
    void readItems(const std::vector<ItemIndex> &items, std::vector<Uid> touched,
                   const CatalogContext &context, Log log);
    std::optional<CalendarText> read(ItemIndex item, const CatalogContext &context) const;
    void enter(ItemIndex item, CalendarText &text, const CatalogContext &context,
               std::vector<Entry> &entries) const;
    void join(std::vector<Uid> touched, const CatalogContext &context, Log log);
    void describe(const CalendarText &text);
    void report(ItemIndex item, const Problems &problems, const CatalogContext &context) const;
    void dropPast(UtcSeconds from);

    StoreCalendar m_given; ///< As the source describes it.
    bool m_isDescribedByText = false;
    std::shared_ptr<const StoreCalendar> m_calendar;
    std::vector<Item> m_items;    ///< By name.
    std::vector<Entry> m_entries; ///< By UID, then item.
};

} // namespace vantrel
