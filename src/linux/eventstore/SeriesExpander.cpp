#include "SeriesExpander.h"

#include "EventLength.h"
#include "RecurrenceRule.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

constexpr std::int64_t longestShift = 3653 * secondsPerDay;

bool isRevisedBy(const EventComponent &older, const EventComponent &newer) {
    return std::pair(older.sequence, older.modified) <= std::pair(newer.sequence, newer.modified);
}

/// Occurrences that do not stand where the rules put them: by instant, and by day where a day was
/// all that was written.
class LeftOut {
public:
    void addInstant(UtcSeconds instant) { m_instants.push_back(instant); }
    void addDay(std::int64_t day) { m_days.push_back(day); }

    void sort() {
        std::sort(m_instants.begin(), m_instants.end());
        std::sort(m_days.begin(), m_days.end());
    }

    [[nodiscard]] bool holds(UtcSeconds instant, std::int64_t day) const {
        return std::binary_search(m_instants.begin(), m_instants.end(), instant) ||
               std::binary_search(m_days.begin(), m_days.end(), day);
    }

private:
    std::vector<UtcSeconds> m_instants;
    std::vector<std::int64_t> m_days;
};

/// From one occurrence on the series is told of by an override.
struct Continuation {
    UtcSeconds from;
    const EventComponent *component;
    std::int64_t shift; ///< How much later than its old place each occurrence starts.
    EventLength length;
};

/// The expansion of one UID's components.
class Series {
public:
    Series(const SeriesExpander &expander, Window window, StepBudget &budget, Problems &problems)
        : m_expander(expander), m_window(window), m_budget(budget), m_problems(problems) {}

    Expansion expand(const std::vector<const EventComponent *> &components) {
        sortOut(components);
        for (const auto &[key, override] : m_overrides)
            placeSingle(*override);
        if (m_master && m_master->isRecurring())
            placeSeries();
        else if (m_master && !m_leftOut.holds(m_start, startDay()))
            placeSingle(*m_master);
        return std::move(m_expansion);
    }

private:
    using Key = std::pair<UtcSeconds, bool>; ///< An instant, or a day when true.

    void sortOut(const std::vector<const EventComponent *> &components) {
        for (const EventComponent *component : components) {
            if (component->isOverride)
                continue;
            if (m_master)
                m_problems.add(component->line, QStringLiteral("second event with one UID; the "
                                                               "later revision is shown"));
            if (!m_master || isRevisedBy(*m_master, *component))
                m_master = component;
        }
        if (m_master) {
            m_zone = &m_expander.zoneOf(m_master->start);
            m_start = m_expander.instantOf(m_master->start);
            m_length = lengthOf(*m_master);
            for (const Moment &exception : m_master->exceptions)
                leaveOut(keyOf(exception));
        }
        for (const EventComponent *component : components) {
            if (component->isOverride)
                sortOutOverride(*component);
        }
        std::sort(m_continuations.begin(), m_continuations.end(),
                  [](const auto &left, const auto &right) { return left.from < right.from; });
        m_leftOut.sort();
    }

    void sortOutOverride(const EventComponent &component) {
        if (!component.recurrenceId)
            return placeSingle(component);
        const Key key = keyOf(*component.recurrenceId);
        const auto [known, isFirst] = m_overrides.emplace(key, &component);
        if (!isFirst) {
            m_problems.add(component.line, QStringLiteral("second override of one occurrence; the "
                                                          "later revision is shown"));
            if (isRevisedBy(*known->second, component))
                known->second = &component;
            return;
        }
        leaveOut(key);
        if (component.isThisAndFuture && m_master)
            continueWith(component);
    }

    void continueWith(const EventComponent &component) {
        const UtcSeconds place = instantInSeries(*component.recurrenceId);
        const Zone &zone = m_expander.zoneOf(component.start);
        const std::int64_t shift = component.start.kind == Moment::Kind::utc
                                       ? component.start.civil - place
                                       : component.start.civil - zone.toCivil(place);
        if (std::abs(shift) > longestShift) {
            m_problems.add(component.line, QStringLiteral("series moved too far"));
            return;
        }
        m_continuations.push_back({place, &component, shift, lengthOf(component)});
        m_longestShift = std::max(m_longestShift, std::abs(shift));
    }

    void placeSeries() {
        std::vector<CivilSeconds> readings = ruleReadings(m_master->rules, true);
        for (const CivilSeconds reading : ruleReadings(m_master->exceptionRules, false))
            m_leftOut.addInstant(m_zone->toUtc(reading));
        m_leftOut.sort();
        if (m_master->rules.empty())
            readings.push_back(m_master->start.civil);
        std::sort(readings.begin(), readings.end());
        readings.erase(std::unique(readings.begin(), readings.end()), readings.end());
        for (const CivilSeconds reading : readings)
            placeReading(reading, m_length);
        placeDates(readings);
    }

    /// The wall-clock readings that the rules yield around the window.
    std::vector<CivilSeconds> ruleReadings(const std::vector<QByteArrayView> &rules, bool isShown) {
        std::vector<CivilSeconds> readings;
        const CivilSeconds start = m_master->start.civil;
        const CivilSeconds from =
            m_window.from - m_length.atMost() - longestContinuation() - secondsPerDay;
        const CivilSeconds to = m_window.to + m_longestShift + secondsPerDay;
        for (const QByteArrayView text : rules) {
            QString problem;
            const auto rule = RecurrenceRule::parse(text, problem);
            if (!rule) {
                m_problems.add(m_master->line, problem);
                readings.push_back(start);
                continue;
            }
            int steps = std::min(StepBudget::perSeries, m_budget.left);
            const int granted = steps;
            const auto end =
                rule->readings(start, isAllDay(), untilOf(*rule), from, to, steps,
                               [&readings](CivilSeconds reading) { readings.push_back(reading); });
            m_budget.left -= granted - std::max(steps, 0);
            if (end == RecurrenceRule::End::ofPatience)
                m_problems.add(m_master->line,
                               QStringLiteral("recurrence rule with too many occurrences; not all "
                                              "of them are shown"));
            if (isShown && end != RecurrenceRule::End::ofRule)
                noteDue(m_continuations.empty() ? std::max(m_window.to, m_start) : m_window.to);
        }
        return readings;
    }

    std::optional<CivilSeconds> untilOf(const RecurrenceRule &rule) const {
        const auto &until = rule.until();
        if (!until)
            return std::nullopt;
        if (until->isDate)
            return isAllDay() ? until->civil : until->civil + secondsPerDay - 1;
        return until->isUtc && !isAllDay() ? m_zone->toCivil(until->civil) : until->civil;
    }

    void placeDates(const std::vector<CivilSeconds> &readings) {
        for (const AddedDate &date : m_master->dates) {
            const UtcSeconds instant = instantInSeries(date.start);
            const CivilSeconds reading = m_zone->toCivil(instant);
            if (instant >= m_window.to)
                noteDue(instant);
            if (std::binary_search(readings.begin(), readings.end(), reading))
                continue;
            EventLength length = m_length;
            if (date.duration)
                length = EventLength::ofSpan(*date.duration);
            else if (date.end)
                length = EventLength::between(instant, instantInSeries(*date.end));
            placeReading(reading, length);
        }
    }

    void placeReading(CivilSeconds reading, const EventLength &length) {
        const UtcSeconds start = m_zone->toUtc(reading);
        if (m_leftOut.holds(start, civilDay(reading)))
            return;
        const auto next = std::upper_bound(
            m_continuations.begin(), m_continuations.end(), start,
            [](UtcSeconds instant, const Continuation &one) { return instant < one.from; });
        if (next == m_continuations.begin())
            return place(*m_master, start, length.endOf(reading, start, *m_zone));
        const Continuation &continuation = *std::prev(next);
        const Zone &zone = m_expander.zoneOf(continuation.component->start);
        const bool isUtc = continuation.component->start.kind == Moment::Kind::utc;
        const CivilSeconds moved = (isUtc ? start : zone.toCivil(start)) + continuation.shift;
        const UtcSeconds instant = isUtc ? moved : zone.toUtc(moved);
        place(*continuation.component, instant, continuation.length.endOf(moved, instant, zone));
    }

    void placeSingle(const EventComponent &component) {
        const UtcSeconds start = m_expander.instantOf(component.start);
        const Zone &zone = m_expander.zoneOf(component.start);
        place(component, start, lengthOf(component).endOf(zone.toCivil(start), start, zone));
        if (start >= m_window.to)
            noteDue(start);
    }

    void place(const EventComponent &component, UtcSeconds start, UtcSeconds end) {
        if (m_window.overlaps(start, end))
            m_expansion.occurrences.push_back({start, end, &component});
    }

    void noteDue(UtcSeconds due) { m_expansion.due = std::min(m_expansion.due, due); }

    EventLength lengthOf(const EventComponent &component) {
        const UtcSeconds start = m_expander.instantOf(component.start);
        std::optional<UtcSeconds> end;
        if (component.end)
            end = m_expander.instantOf(*component.end);
        if (end && *end < start)
            m_problems.add(component.line, QStringLiteral("event that ends before it starts"));
        return EventLength::of(component, start, end);
    }

    void leaveOut(const Key &key) {
        if (key.second)
            m_leftOut.addDay(key.first);
        else
            m_leftOut.addInstant(key.first);
    }

    /// What an exception or a recurrence id names. A whole-day series is named by the day that is
    /// written, whatever the time behind it; another one by a day when that is all there is.
    [[nodiscard]] Key keyOf(const Moment &moment) const {
        if (!m_master)
            return {m_expander.instantOf(moment), false};
        if (isAllDay() && moment.kind == Moment::Kind::utc)
            return {civilDay(m_zone->toCivil(moment.civil)), true};
        if (isAllDay() || moment.kind == Moment::Kind::date)
            return {civilDay(moment.civil), true};
        return {instantInSeries(moment), false};
    }

    /// A day alone means the series' own time of that day, a floating time one in its zone.
    [[nodiscard]] UtcSeconds instantInSeries(const Moment &moment) const {
        if (isAllDay())
            return m_zone->toUtc(keyOf(moment).first * secondsPerDay);
        if (moment.kind == Moment::Kind::date) {
            const CivilSeconds start = m_master->start.civil;
            return m_zone->toUtc(startOfCivilDay(moment.civil) + start - startOfCivilDay(start));
        }
        return moment.kind == Moment::Kind::floating ? m_zone->toUtc(moment.civil)
                                                     : m_expander.instantOf(moment);
    }

    [[nodiscard]] std::int64_t longestContinuation() const {
        std::int64_t longest = m_longestShift;
        for (const Continuation &continuation : m_continuations)
            longest = std::max(longest, m_longestShift + continuation.length.atMost());
        return longest;
    }

    [[nodiscard]] bool isAllDay() const { return m_master->start.kind == Moment::Kind::date; }
    [[nodiscard]] std::int64_t startDay() const { return civilDay(m_master->start.civil); }

    const SeriesExpander &m_expander;
    const Window m_window;
    StepBudget &m_budget;
    Problems &m_problems;
    Expansion m_expansion;

    const EventComponent *m_master = nullptr;
    const Zone *m_zone = nullptr; ///< Of the master.
    UtcSeconds m_start = 0;       ///< Of the master.
    EventLength m_length;         ///< Of the master.
    LeftOut m_leftOut;
    std::map<Key, const EventComponent *> m_overrides;
    std::vector<Continuation> m_continuations;
    std::int64_t m_longestShift = 0;
};

} // namespace

Expansion SeriesExpander::expand(const std::vector<const EventComponent *> &components,
                                 StepBudget &budget, Problems &problems) const {
    return Series(*this, m_window, budget, problems).expand(components);
}

const Zone &SeriesExpander::zoneOf(const Moment &moment) const {
    static const Zone utc(0, {});
    if (moment.kind == Moment::Kind::utc)
        return utc;
    return moment.zone && moment.zone->zone ? *moment.zone->zone : m_userZone;
}

UtcSeconds SeriesExpander::instantOf(const Moment &moment) const {
    return moment.kind == Moment::Kind::utc ? moment.civil : zoneOf(moment).toUtc(moment.civil);
}

} // namespace vantrel
