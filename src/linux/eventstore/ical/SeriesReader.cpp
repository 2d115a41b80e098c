#include "SeriesReader.h"

#include "EventIdentifier.h"
#include "EventTexts.h"

#include <algorithm>
#include <utility>

namespace vantrel {

SeriesReader::SeriesReader(SeriesExpander expander, QString calendarIdentifier,
                           QStringList addresses)
    : m_expander(std::move(expander)),
      m_calendarIdentifier(std::move(calendarIdentifier)),
      m_addresses(std::move(addresses)) {}

SeriesReader::Result SeriesReader::read(const std::vector<const EventComponent *> &components,
                                        StepBudget &budget, Problems &problems) const {
    Expansion expansion = m_expander.expand(components, budget, problems);
    Result result{nullptr, expansion.due};
    if (expansion.occurrences.empty())
        return result;

    const bool isSeries =
        std::any_of(components.begin(), components.end(),
                    [](const auto *component) { return component->isRecurring(); });
    std::stable_sort(expansion.occurrences.begin(), expansion.occurrences.end(),
                     [](const Occurrence &left, const Occurrence &right) {
                         return left.component < right.component;
                     });
    auto shown = std::make_shared<ShownSeries>();
    shown->placements.reserve(expansion.occurrences.size());
    const EventComponent *current = nullptr;
    for (const Occurrence &occurrence : expansion.occurrences) {
        if (occurrence.component != current) {
            current = occurrence.component;
            StoreEvent event = eventOf(*current, m_addresses);
            event.eventIdentifier =
                eventIdentifier(m_calendarIdentifier, *current, m_expander.clock());
            event.hasRecurrenceRules = isSeries;
            shown->events.push_back(std::move(event));
        }
        const auto event = static_cast<std::uint32_t>(shown->events.size() - 1);
        shown->placements.push_back({occurrence.start, occurrence.end, event});
    }
    shown->events.shrink_to_fit();
    result.shown = std::move(shown);
    return result;
}

} // namespace vantrel
