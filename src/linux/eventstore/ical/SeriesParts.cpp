#include "SeriesParts.h"

#include <algorithm>
#include <cstdlib>

namespace vantrel {

namespace {

constexpr std::int64_t longestShift = 3653 * secondsPerDay;

bool isRevisedBy(const EventComponent &one, const EventComponent &other) {
    return std::pair(one.sequence, one.modified) <= std::pair(other.sequence, other.modified);
}

} // namespace

void LeftOut::sort() {
    std::sort(m_instants.begin(), m_instants.end());
    std::sort(m_days.begin(), m_days.end());
}

bool LeftOut::holds(UtcSeconds instant, std::int64_t day) const {
    return std::binary_search(m_instants.begin(), m_instants.end(), instant) ||
           std::binary_search(m_days.begin(), m_days.end(), day);
}

SeriesParts::SeriesParts(const std::vector<const EventComponent *> &components,
                         const UserClock &clock, Problems &problems)
    : m_clock(clock) {
    findMaster(components, problems);
    findOverrides(components, problems);
    if (m_master)
        findContinuations(problems);
    m_leftOut.sort();
    for (const EventComponent *component : components) {
        if (endsBeforeItStarts(*component, clock))
            problems.add(component->line, QStringLiteral("event that ends before it starts"));
    }
}

void SeriesParts::findMaster(const std::vector<const EventComponent *> &components,
                             Problems &problems) {
    for (const EventComponent *component : components) {
        if (component->isOverride)
            continue;
        if (m_master)
            problems.add(component->line,
                         QStringLiteral("second event with one UID; the later revision is shown"));
        if (!m_master || isRevisedBy(*m_master, *component))
            m_master = component;
    }
    if (!m_master)
        return;
    m_zone = &m_clock.zoneOf(m_master->start);
    m_length = EventLength(*m_master, m_clock);
    for (const Moment &exception : m_master->exceptions)
        leaveOut(keyOf(exception));
}

void SeriesParts::findOverrides(const std::vector<const EventComponent *> &components,
                                Problems &problems) {
    std::map<Key, const EventComponent *> byKey;
    for (const EventComponent *component : components) {
        if (!component->isOverride)
            continue;
        if (!component->recurrenceId) {
            m_overrides.push_back(component);
            continue;
        }
        const auto [known, isFirst] = byKey.emplace(keyOf(*component->recurrenceId), component);
        if (isFirst)
            continue;
        problems.add(component->line, QStringLiteral("second override of one occurrence; the later "
                                                     "revision is shown"));
        if (isRevisedBy(*known->second, *component))
            known->second = component;
    }
    for (const auto &[key, component] : byKey) {
        leaveOut(key);
        m_overrides.push_back(component);
    }
}

void SeriesParts::findContinuations(Problems &problems) {
    for (const EventComponent *component : m_overrides) {
        if (!component->isThisAndFuture || !component->recurrenceId)
            continue;
        const UtcSeconds place = instantOf(*component->recurrenceId);
        const std::int64_t shift =
            component->start.civil - m_clock.zoneOf(component->start).toCivil(place);
        if (std::abs(shift) > longestShift)
            problems.add(component->line, QStringLiteral("series moved by more than ten years"));
        else
            m_continuations.push_back({place, component, shift, EventLength(*component, m_clock)});
    }
    std::sort(m_continuations.begin(), m_continuations.end(),
              [](const auto &left, const auto &right) { return left.from < right.from; });
}

/// A series of whole days is named by the day that is written, whatever time stands behind it;
/// another one by a day when a day is all there is.
SeriesParts::Key SeriesParts::keyOf(const Moment &moment) const {
    if (!m_master)
        return {m_clock.instantOf(moment), false};
    if (isAllDay() && moment.kind == Moment::Kind::utc)
        return {civilDay(m_zone->toCivil(moment.civil)), true};
    if (isAllDay() || moment.kind == Moment::Kind::date)
        return {civilDay(moment.civil), true};
    return {instantOf(moment), false};
}

UtcSeconds SeriesParts::instantOf(const Moment &moment) const {
    if (isAllDay())
        return m_zone->toUtc(keyOf(moment).first * secondsPerDay);
    if (moment.kind == Moment::Kind::date) {
        const CivilSeconds start = m_master->start.civil;
        return m_zone->toUtc(startOfCivilDay(moment.civil) + start - startOfCivilDay(start));
    }
    return moment.kind == Moment::Kind::floating ? m_zone->toUtc(moment.civil)
                                                 : m_clock.instantOf(moment);
}

void SeriesParts::leaveOut(const Key &key) {
    if (key.second)
        m_leftOut.addDay(key.first);
    else
        m_leftOut.addInstant(key.first);
}

} // namespace vantrel
