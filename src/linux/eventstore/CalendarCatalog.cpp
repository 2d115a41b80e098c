#include "CalendarCatalog.h"

#include "CalendarColors.h"
#include "SeriesReader.h"
#include "StoreLog.h"

#include <QHash>

#include <algorithm>
#include <map>
#include <utility>

namespace vantrel {

namespace {

std::uint64_t hashOf(const QByteArray &uid) {
    return qHash(uid, static_cast<size_t>(QHashSeed::globalSeed()));
}

} // namespace

bool CalendarCatalog::update(const SourceCalendar &calendar, const CatalogContext &context) {
    const bool isAdopted = adopt(calendar);
    if (!calendar.hasChanges)
        return isAdopted;
    auto items = context.source.items(m_given.calendarIdentifier);
    if (!items)
        return isAdopted;
    std::vector<Uid> touched;
    const auto changed = takeItems(std::move(*items), calendar.rewrittenItems, touched);
    const bool isDifferent = isAdopted || !changed.empty() || !touched.empty();
    readItems(changed, std::move(touched), context, Log::problems);
    return isDifferent;
}

bool CalendarCatalog::roll(const CatalogContext &context) {
    std::vector<ItemIndex> due;
    for (const Entry &entry : m_entries) {
        if (entry.due < context.window.to)
            due.push_back(entry.item);
    }
    std::sort(due.begin(), due.end());
    due.erase(std::unique(due.begin(), due.end()), due.end());
    readItems(due, {}, context, Log::nothing);
    dropPast(context.window.from);
    return true;
}

void CalendarCatalog::rebuild(const CatalogContext &context) {
    std::vector<ItemIndex> all(m_items.size());
    for (std::size_t index = 0; index < all.size(); ++index)
        all[index] = static_cast<ItemIndex>(index);
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

bool CalendarCatalog::adopt(const SourceCalendar &calendar) {
    const StoreCalendar &given = calendar.calendar;
    if (m_calendar && given.title == m_given.title && given.color == m_given.color &&
        given.allowsContentModifications == m_given.allowsContentModifications &&
        given.source.title == m_given.source.title)
        return false;
    m_given = given;
    m_isDescribedByText = calendar.isDescribedByText;
    m_calendar = std::make_shared<const StoreCalendar>(given);
    return true;
}

/// Replaces the items and answers which of them are to be read. Adds the UIDs of those that are
/// gone.
std::vector<CalendarCatalog::ItemIndex>
CalendarCatalog::takeItems(std::vector<SourceItem> items, const std::vector<QByteArray> &rewritten,
                           std::vector<Uid> &touched) {
    std::sort(items.begin(), items.end(),
              [](const auto &left, const auto &right) { return left.name < right.name; });
    constexpr ItemIndex gone = ~ItemIndex{0};
    std::vector<ItemIndex> moved(m_items.size(), gone);
    std::vector<ItemIndex> changed;
    std::vector<Item> taken;
    taken.reserve(items.size());
    std::size_t old = 0;
    for (SourceItem &item : items) {
        while (old < m_items.size() && m_items[old].name < item.name)
            ++old;
        const auto index = static_cast<ItemIndex>(taken.size());
        const bool isKnown = old < m_items.size() && m_items[old].name == item.name;
        if (isKnown)
            moved[old] = index;
        if (!isKnown || m_items[old].version != item.version ||
            std::find(rewritten.begin(), rewritten.end(), item.name) != rewritten.end())
            changed.push_back(index);
        taken.push_back({std::move(item.name), item.version});
    }
    m_items = std::move(taken);
    std::erase_if(m_entries, [&](Entry &entry) {
        const ItemIndex index = moved[entry.item];
        if (index == gone)
            touched.push_back(entry.uid);
        else
            entry.item = index;
        return index == gone;
    });
    return changed;
}

void CalendarCatalog::readItems(const std::vector<ItemIndex> &items, std::vector<Uid> touched,
                                const CatalogContext &context, Log log) {
    std::vector<bool> isShown(m_items.size());
    for (const Entry &entry : m_entries)
        isShown[entry.item] = true;
    std::vector<bool> isReplaced(m_items.size());
    std::vector<Entry> fresh;
    for (const ItemIndex item : items) {
        if (context.isStopping)
            return;
        auto text = read(item, context);
        if (!text)
            continue;
        if (text->isComplete || !isShown[item]) {
            isReplaced[item] = true;
            enter(item, *text, context, fresh);
            describe(*text);
        } else {
            text->problems.add(0, QStringLiteral("its last complete version stays"));
        }
        if (log == Log::problems)
            report(item, text->problems, context);
    }

    std::erase_if(m_entries, [&](const Entry &entry) {
        if (isReplaced[entry.item])
            touched.push_back(entry.uid);
        return isReplaced[entry.item];
    });
    for (Entry &entry : fresh) {
        touched.push_back(entry.uid);
        m_entries.push_back(std::move(entry));
    }
    m_entries.shrink_to_fit();
    std::sort(m_entries.begin(), m_entries.end(), [](const Entry &left, const Entry &right) {
        return std::pair(left.uid, left.item) < std::pair(right.uid, right.item);
    });
    join(std::move(touched), context, log);
    for (Entry &entry : m_entries)
        entry.isFresh = false;
}

std::optional<CalendarText> CalendarCatalog::read(ItemIndex item,
                                                  const CatalogContext &context) const {
    auto bytes = context.source.text(m_given.calendarIdentifier, m_items[item].name);
    if (!bytes)
        return std::nullopt;
    return readCalendarText(std::move(*bytes), context.zones);
}

/// Adds an entry for each UID of the text.
void CalendarCatalog::enter(ItemIndex item, CalendarText &text, const CatalogContext &context,
                            std::vector<Entry> &entries) const {
    std::vector<std::pair<Uid, const EventComponent *>> components;
    components.reserve(text.events.size());
    for (const EventComponent &event : text.events)
        components.emplace_back(hashOf(event.uid), &event);
    std::stable_sort(components.begin(), components.end(),
                     [](const auto &left, const auto &right) { return left.first < right.first; });

    const SeriesExpander expander(context.userZone, context.window);
    const SeriesReader reader(expander, m_given.calendarIdentifier, context.addresses);
    StepBudget budget;
    std::vector<const EventComponent *> group;
    for (std::size_t index = 0; index < components.size(); ++index) {
        const Uid uid = components[index].first;
        group.push_back(components[index].second);
        if (index + 1 < components.size() && components[index + 1].first == uid)
            continue;
        auto result = reader.read(group, budget, text.problems);
        entries.push_back({uid, result.due, std::move(result.shown), item, true});
        group.clear();
    }
}

/// Expands together what several items say of one UID.
void CalendarCatalog::join(std::vector<Uid> touched, const CatalogContext &context, Log log) {
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
    const auto before = [](const Entry &entry, Uid uid) { return entry.uid < uid; };
    std::map<ItemIndex, std::optional<CalendarText>> texts;
    const SeriesExpander expander(context.userZone, context.window);
    const SeriesReader reader(expander, m_given.calendarIdentifier, context.addresses);

    for (const Uid uid : touched) {
        const auto first = std::lower_bound(m_entries.begin(), m_entries.end(), uid, before);
        const auto last = std::find_if(first, m_entries.end(),
                                       [uid](const Entry &entry) { return entry.uid != uid; });
        if (first == last || (std::next(first) == last && first->isFresh))
            continue;
        std::vector<ItemIndex> items;
        for (auto entry = first; entry != last; ++entry)
            items.push_back(entry->item);
        std::stable_sort(items.begin(), items.end(), [this](ItemIndex left, ItemIndex right) {
            return m_items[left].version.modified < m_items[right].version.modified;
        });
        std::vector<const EventComponent *> group;
        for (const ItemIndex item : items) {
            if (context.isStopping)
                return;
            auto text = texts.find(item);
            if (text == texts.end())
                text = texts.emplace(item, read(item, context)).first;
            if (!text->second)
                continue;
            for (const EventComponent &event : text->second->events) {
                if (hashOf(event.uid) == uid)
                    group.push_back(&event);
            }
        }
        StepBudget budget;
        Problems problems;
        auto result = reader.read(group, budget, problems);
        for (auto entry = first; entry != last; ++entry) {
            entry->due = result.due;
            entry->shown = std::exchange(result.shown, nullptr);
        }
        if (log == Log::problems && items.size() > 1 && !problems.isEmpty()) {
            Problems shared;
            shared.add(0, QStringLiteral("holds an event of the same UID as %1; the later revision "
                                         "is shown")
                              .arg(context.source.description(m_given.calendarIdentifier,
                                                              m_items[items.back()].name)));
            report(items.front(), shared, context);
        }
    }
}

void CalendarCatalog::describe(const CalendarText &text) {
    if (!m_isDescribedByText)
        return;
    StoreCalendar described = m_given;
    if (!text.name.isEmpty())
        described.title = text.name;
    if (const auto color = colorFromText(text.color))
        described.color = color;
    m_calendar = std::make_shared<const StoreCalendar>(std::move(described));
}

void CalendarCatalog::report(ItemIndex item, const Problems &problems,
                             const CatalogContext &context) const {
    const QString name = context.source.description(m_given.calendarIdentifier, m_items[item].name);
    for (const Problem &problem : problems.kept()) {
        if (problem.line > 0)
            qCWarning(eventStoreLog).noquote().nospace()
                << name << ":" << problem.line << ": " << problem.reason;
        else
            qCWarning(eventStoreLog).noquote().nospace() << name << ": " << problem.reason;
    }
    if (problems.leftOut() > 0)
        qCWarning(eventStoreLog).noquote().nospace()
            << name << ": " << problems.leftOut() << " more problems";
}

void CalendarCatalog::dropPast(UtcSeconds from) {
    for (Entry &entry : m_entries) {
        if (!entry.shown)
            continue;
        const auto &placements = entry.shown->placements;
        const bool isPast = std::all_of(placements.begin(), placements.end(),
                                        [from](const auto &one) { return one.end < from; });
        if (isPast)
            entry.shown.reset();
    }
}

} // namespace vantrel
