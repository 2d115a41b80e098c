#include "StoreCatalog.h"

#include <set>
#include <utility>

namespace vantrel {

StoreCatalog::StoreCatalog(std::vector<ComponentSource *> sources, QStringList addresses)
    : m_sources(std::move(sources)), m_addresses(std::move(addresses)) {}

std::optional<EventIndex::Calendars> StoreCatalog::bring(Window window, const QTimeZone &userZone) {
    const bool isOtherWindow = window != m_window;
    const bool isRebuilt = userZone != m_userZone || window.from < m_window.from;
    const Zone zone(userZone);
    std::vector<QString> order;
    EventIndex::Calendars answers;
    bool isDifferent = false;
    for (ComponentSource *source : m_sources) {
        if (m_isStopping)
            return std::nullopt;
        const CatalogContext context{*source, m_zones, zone, window, m_addresses, m_isStopping};
        for (SourceCalendar &calendar : source->calendars()) {
            if (m_isStopping)
                return std::nullopt;
            order.push_back(calendar.calendar.calendarIdentifier);
            Known &known = m_known[order.back()];
            known.source = source;
            calendar.hasChanges = calendar.hasChanges || !known.occurrences;
            bool isChanged = known.catalog.update(calendar, context) || !known.occurrences;
            if (isRebuilt && known.occurrences)
                known.catalog.rebuild(context);
            else if (isOtherWindow && known.occurrences)
                known.catalog.roll(context);
            isChanged = isChanged || isRebuilt || isOtherWindow;
            if (isChanged)
                known.occurrences = known.catalog.occurrences();
            isDifferent = isDifferent || isChanged;
            answers.list.push_back(known.occurrences);
        }
        answers.knowledge.push_back(source->knowledge());
    }
    isDifferent = isDifferent || order != m_order || answers.knowledge != m_knowledge;
    m_knowledge = answers.knowledge;
    const std::set<QString> present(order.begin(), order.end());
    std::erase_if(m_known, [&present](const auto &one) { return !present.contains(one.first); });
    m_order = std::move(order);
    m_window = window;
    m_userZone = userZone;
    m_zones.forgetDescribedZones();
    return isDifferent ? std::optional(std::move(answers)) : std::nullopt;
}

QString StoreCatalog::trouble() const {
    for (const ComponentSource *const source : m_sources) {
        if (QString trouble = source->trouble(); !trouble.isEmpty())
            return trouble;
    }
    for (const auto &[identifier, known] : m_known) {
        if (const auto item = known.catalog.brokenItem())
            return QStringLiteral("%1 is no whole calendar; events may be missing")
                .arg(known.source->description(identifier, *item));
    }
    return {};
}

} // namespace vantrel
