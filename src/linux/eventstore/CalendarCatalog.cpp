#include "CalendarCatalog.h"

#include "SharedSeries.h"

#include <linux/eventstore/ical/ComponentReader.h>
#include <linux/eventstore/source/CalendarColors.h>
#include <linux/eventstore/source/StoreLog.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace vantrel {

bool CalendarCatalog::update(const SourceCalendar &calendar, const CatalogContext &context) {
    const bool hasOtherAddresses = adoptAddresses(calendar, context);
    const bool isAdopted = adopt(calendar) || hasOtherAddresses;
    if (hasOtherAddresses)
        rebuild(context);
    if (!calendar.hasChanges && !m_isIncomplete)
        return isAdopted;
    auto items = context.source.items(m_given.calendarIdentifier);
    m_isIncomplete = !items;
    if (!items)
        return isAdopted;
    const auto change = m_items.replace(std::move(*items), calendar.rewrittenItems);
    auto lost = moveEntries(change.moved);
    const bool isDifferent = isAdopted || !change.toRead.empty() || !lost.empty();
    readItems(change.toRead, std::move(lost), context, Log::problems);
    return isDifferent;
}

void CalendarCatalog::roll(const CatalogContext &context) {
    std::vector<ItemIndex> due;
    for (const Entry &entry : m_entries) {
        if (entry.due < context.window.to)
            due.push_back(entry.item);
    }
    std::sort(due.begin(), due.end());
    due.erase(std::unique(due.begin(), due.end()), due.end());
    readItems(due, {}, context, Log::nothing);
    dropPast(context.window.from);
}

void CalendarCatalog::rebuild(const CatalogContext &context) {
    std::vector<ItemIndex> all(m_items.size());
    std::iota(all.begin(), all.end(), ItemIndex{0});
    readItems(all, {}, context, Log::nothing);
    dropPast(context.window.from);
}

std::shared_ptr<const CalendarOccurrences> CalendarCatalog::occurrences() const {
    std::vector<std::shared_ptr<const ShownSeries>> series;
    for (const Entry &entry : m_entries) {
        if (entry.shown)
            series.push_back(entry.shown);
    }
    return std::make_shared<const CalendarOccurrences>(m_calendar, std::move(series));
}

std::optional<QByteArray> CalendarCatalog::brokenItem() const {
    for (ItemIndex index = 0; index < m_items.size() && !m_brokenItems.empty(); ++index) {
        if (m_brokenItems.contains(m_items[index].name))
            return m_items[index].name;
    }
    return std::nullopt;
}

bool CalendarCatalog::adopt(const SourceCalendar &calendar) {
    const StoreCalendar &given = calendar.calendar;
    if (m_calendar && given.title == m_given.title && given.color == m_given.color &&
        given.allowsContentModifications == m_given.allowsContentModifications &&
        given.type == m_given.type &&
        given.source.sourceIdentifier == m_given.source.sourceIdentifier &&
        given.source.title == m_given.source.title)
        return false;
    m_given = given;
    m_isDescribedByText = calendar.isDescribedByText;
    describe();
    return true;
}

/// Whether it is others whose answers to invitations count as the user's.
bool CalendarCatalog::adoptAddresses(const SourceCalendar &calendar,
                                     const CatalogContext &context) {
    QStringList addresses = context.addresses + calendar.addresses;
    addresses.removeDuplicates();
    return std::exchange(m_addresses, addresses) != addresses;
}

void CalendarCatalog::describe() {
    StoreCalendar described = m_given;
    if (!m_textName.isEmpty())
        described.title = m_textName;
    if (const auto color = colorFromText(m_textColor))
        described.color = color;
    m_calendar = std::make_shared<const StoreCalendar>(std::move(described));
}

/// Has the entries follow their items, and answers those whose items are gone.
std::vector<CalendarCatalog::Entry>
CalendarCatalog::moveEntries(const std::vector<ItemIndex> &moved) {
    std::vector<Entry> lost;
    std::erase_if(m_entries, [&](Entry &entry) {
        entry.item = moved[entry.item];
        if (entry.item == ItemList::gone)
            lost.push_back(entry);
        return entry.item == ItemList::gone;
    });
    return lost;
}

/// Reads the items and puts their entries in the place of the ones they had. `lost` are entries
/// that are gone already.
void CalendarCatalog::readItems(const std::vector<ItemIndex> &items, std::vector<Entry> lost,
                                const CatalogContext &context, Log log) {
    std::vector<bool> isReplaced(m_items.size());
    auto fresh = readAnew(items, isReplaced, context, log);
    std::erase_if(m_entries, [&](const Entry &entry) {
        if (isReplaced[entry.item])
            lost.push_back(entry);
        return isReplaced[entry.item];
    });
    m_entries.insert(m_entries.end(), std::move_iterator(fresh.begin()),
                     std::move_iterator(fresh.end()));
    m_entries.shrink_to_fit();
    std::sort(m_entries.begin(), m_entries.end(), [](const Entry &left, const Entry &right) {
        return std::pair(left.uid, left.item) < std::pair(right.uid, right.item);
    });
    expandShared(std::move(lost), context, log);
    for (Entry &entry : m_entries)
        entry.isFresh = false;
}

/// The entries of the items that can be read. The others keep theirs.
std::vector<CalendarCatalog::Entry> CalendarCatalog::readAnew(const std::vector<ItemIndex> &items,
                                                              std::vector<bool> &isReplaced,
                                                              const CatalogContext &context,
                                                              Log log) {
    const SeriesReader reader = readerFor(context);
    std::vector<Entry> fresh;
    for (const ItemIndex item : items) {
        if (context.isStopping)
            break;
        auto text = read(item, context);
        if (!text) {
            m_items.markUnread(item);
            m_isIncomplete = true;
            continue;
        }
        if (text->isComplete)
            m_brokenItems.erase(m_items[item].name);
        else
            m_brokenItems.insert(m_items[item].name);
        if (text->isComplete || !m_items.isFromWholeText(item)) {
            isReplaced[item] = true;
            m_items.setFromWholeText(item, text->isComplete && !text->events.empty());
            if (m_isDescribedByText) {
                m_textName = text->name;
                m_textColor = text->color;
                describe();
            }
            StepBudget budget;
            ComponentsByUid(text->events).forEach([&](UidHash uid, const auto &components) {
                auto result = reader.read(components, budget, text->problems);
                fresh.push_back({uid, result.due, std::move(result.shown), item, true});
            });
        } else {
            text->problems.add(0, QStringLiteral("its last complete version stays"));
        }
        if (log == Log::problems && !text->problems.isEmpty())
            logProblems(description(item, context), text->problems);
    }
    return fresh;
}

/// Expands the UIDs again that have lost or won an entry and stand in several items, or did.
void CalendarCatalog::expandShared(std::vector<Entry> lost, const CatalogContext &context,
                                   Log log) {
    std::vector<UidHash> touched;
    for (const Entry &entry : lost)
        touched.push_back(entry.uid);
    for (const Entry &entry : m_entries) {
        if (entry.isFresh)
            touched.push_back(entry.uid);
    }
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
    std::sort(lost.begin(), lost.end(),
              [](const Entry &left, const Entry &right) { return left.uid < right.uid; });
    const SeriesReader reader = readerFor(context);
    SharedSeries shared([&](ItemIndex item) { return readShared(item, context); }, reader);
    Problems problems;
    auto first = m_entries.begin();
    for (const UidHash uid : touched) {
        first = std::lower_bound(first, m_entries.end(), uid, isBefore);
        const auto last = std::find_if(first, m_entries.end(),
                                       [uid](const Entry &entry) { return entry.uid != uid; });
        const bool isAlone = last - first == 1 && first->isFresh;
        if (first != last && !isAlone && !context.isStopping &&
            !expandRun(first, last, shared, context, problems))
            keepRun(first, last, lost);
    }
    if (log == Log::problems)
        logProblems(QStringLiteral("items that share a UID"), problems);
}

/// False when one of the items cannot be read, or is half-written.
bool CalendarCatalog::expandRun(std::vector<Entry>::iterator first,
                                std::vector<Entry>::iterator last, SharedSeries &shared,
                                const CatalogContext &context, Problems &problems) {
    std::vector<ItemIndex> items;
    for (auto entry = first; entry != last; ++entry)
        items.push_back(entry->item);
    std::stable_sort(items.begin(), items.end(), [this](ItemIndex left, ItemIndex right) {
        return m_items[left].version.modified < m_items[right].version.modified;
    });
    Problems ofRun;
    auto result = shared.expand(first->uid, items, ofRun);
    if (!result)
        return false;
    for (auto entry = first; entry != last; ++entry) {
        entry->due = result->due;
        entry->shown = std::exchange(result->shown, nullptr);
    }
    for (const Problem &problem : ofRun.kept()) {
        if (items.size() > 1)
            problems.add(0, QStringLiteral("%1 and %2: %3")
                                .arg(description(items.back(), context),
                                     description(items.front(), context), problem.reason));
    }
    return true;
}

/// Has a run show what it did before entries of it were lost. Those whose items had no part in it
/// show what they hold by themselves.
void CalendarCatalog::keepRun(std::vector<Entry>::iterator first, std::vector<Entry>::iterator last,
                              const std::vector<Entry> &lost) {
    std::vector<Entry> orphans;
    auto one = std::lower_bound(lost.begin(), lost.end(), first->uid, isBefore);
    for (; one != lost.end() && one->uid == first->uid; ++one) {
        const auto heir =
            std::find_if(first, last, [&](const Entry &entry) { return entry.item == one->item; });
        if (heir != last) {
            heir->due = one->due;
            heir->shown = one->shown;
        } else if (one->shown) {
            orphans.push_back(*one);
        }
    }
    for (const Entry &orphan : orphans) {
        const auto room =
            std::find_if(first, last, [](const Entry &entry) { return !entry.shown; });
        if (room != last) {
            room->due = orphan.due;
            room->shown = orphan.shown;
        }
    }
}

void CalendarCatalog::dropPast(UtcSeconds from) {
    for (Entry &entry : m_entries) {
        const bool isPast =
            entry.shown &&
            std::all_of(entry.shown->placements.begin(), entry.shown->placements.end(),
                        [from](const auto &one) { return one.end < from; });
        if (isPast)
            entry.shown.reset();
    }
}

std::optional<CalendarText> CalendarCatalog::read(ItemIndex item,
                                                  const CatalogContext &context) const {
    auto bytes = context.source.text(m_given.calendarIdentifier, m_items[item].name);
    if (!bytes)
        return std::nullopt;
    return readCalendarText(std::move(*bytes), context.zones);
}

/// What others with the same UID depend on. Empty, and read again the next time, when that would
/// take away what the item shows.
std::optional<CalendarText> CalendarCatalog::readShared(ItemIndex item,
                                                        const CatalogContext &context) {
    auto text = read(item, context);
    if (text && (text->isComplete || !m_items.isFromWholeText(item)))
        return text;
    m_items.markUnread(item);
    m_isIncomplete = true;
    return std::nullopt;
}

SeriesReader CalendarCatalog::readerFor(const CatalogContext &context) const {
    return SeriesReader(SeriesExpander(UserClock(context.userZone), context.window),
                        m_given.calendarIdentifier, m_addresses);
}

QString CalendarCatalog::description(ItemIndex item, const CatalogContext &context) const {
    return context.source.description(m_given.calendarIdentifier, m_items[item].name);
}

} // namespace vantrel
