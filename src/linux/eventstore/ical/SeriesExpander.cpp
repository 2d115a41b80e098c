#include "SeriesExpander.h"

#include "RuleReadings.h"
#include "SeriesParts.h"

#include <cstdlib>
#include <optional>
#include <set>
#include <utility>

namespace vantrel {

namespace {

/// One expansion under way.
class Placing {
public:
    Placing(SeriesParts &parts, const UserClock &clock, Window window, StepBudget &budget,
            Problems &problems)
        : m_parts(parts),
          m_clock(clock),
          m_window(window),
          m_budget(budget),
          m_problems(problems) {}

    Expansion run() {
        for (const EventComponent *override : m_parts.overrides())
            placeSingle(*override);
        const EventComponent *master = m_parts.master();
        if (master && master->isRecurring())
            placeSeries(*master);
        else if (master && !m_parts.leftOut().holds(m_clock.instantOf(master->start),
                                                    civilDay(master->start.civil)))
            placeSingle(*master);
        return std::move(m_expansion);
    }

private:
    /// Which way a rule counts.
    enum class Purpose { show, leaveOut };

    void placeSeries(const EventComponent &master) {
        for (const CivilSeconds reading : readings(master.exceptionRules, Purpose::leaveOut))
            m_parts.leftOut().addInstant(m_parts.zone().toUtc(reading));
        m_parts.leftOut().sort();

        std::vector<CivilSeconds> shown = readings(master.rules, Purpose::show);
        shown.push_back(master.start.civil);
        std::sort(shown.begin(), shown.end());
        shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
        // By instant: a time that the clock skips means the same as one that it shows.
        std::set<UtcSeconds> known;
        for (const CivilSeconds reading : shown) {
            const UtcSeconds instant = m_parts.zone().toUtc(reading);
            if (known.insert(instant).second)
                placeStart(reading, instant, m_parts.length());
        }
        for (const AddedDate &date : master.dates)
            placeDate(date, known);
    }

    /// The wall-clock readings around the window that the rules yield.
    std::vector<CivilSeconds> readings(const std::vector<QByteArrayView> &rules, Purpose purpose) {
        const EventComponent &master = *m_parts.master();
        const auto [from, to] = readingsAroundWindow();
        std::vector<CivilSeconds> found;
        for (const QByteArrayView text : rules) {
            QString problem;
            auto rule = RecurrenceRule::parse(text, problem);
            if (rule && m_parts.isAllDay() && !rule->makeWholeDays())
                problem = QStringLiteral("recurrence rule of less than a day for a whole day; only "
                                         "its first occurrence is shown");
            if (!problem.isEmpty()) {
                m_problems.add(master.line, problem);
                continue;
            }
            const int granted = m_budget.grant();
            int steps = granted;
            RuleReadings walk(*rule, master.start.civil, untilOf(*rule));
            const std::size_t before = found.size();
            const auto end = walk.collect(from, to, steps, found);
            m_budget.take(granted - std::max(steps, 0));
            dropBehindUntil(*rule, found, before);
            if (end == RuleReadings::End::ofPatience) {
                m_problems.add(master.line, QStringLiteral("recurrence rule with too many "
                                                           "occurrences; not all are shown"));
                // Nobody meets every minute for weeks: none of that is worth an alert.
                if (rule->frequency <= RecurrenceRule::Frequency::minutely)
                    found.resize(before);
            }
            if (purpose == Purpose::show && end != RuleReadings::End::ofRule)
                noteDue(m_window.to);
        }
        return found;
    }

    /// Wide enough for every zone, for occurrences under way, and for those that were moved.
    [[nodiscard]] std::pair<CivilSeconds, CivilSeconds> readingsAroundWindow() const {
        std::int64_t shift = 0;
        std::int64_t length = m_parts.length().atMost();
        for (const Continuation &continuation : m_parts.continuations()) {
            shift = std::max(shift, std::abs(continuation.shift));
            length = std::max(length, continuation.length.atMost());
        }
        return {m_window.from - length - shift - secondsPerDay,
                m_window.to + shift + secondsPerDay};
    }

    /// UNTIL in the series' own time. A day alone includes all of that day, an instant in the
    /// second of two equal hours all of the first.
    [[nodiscard]] std::optional<CivilSeconds> untilOf(const RecurrenceRule &rule) const {
        const auto &until = rule.until;
        if (!until || m_parts.isAllDay())
            return until ? std::optional(until->civil) : std::nullopt;
        if (until->isDate)
            return until->civil + secondsPerDay - 1;
        if (!until->isUtc)
            return until->civil;
        const CivilSeconds reading = m_parts.zone().toCivil(until->civil);
        return reading + (until->civil - m_parts.zone().toUtc(reading));
    }

    /// Around a change of the clock readings and instants are not in the same order.
    void dropBehindUntil(const RecurrenceRule &rule, std::vector<CivilSeconds> &readings,
                         std::size_t first) const {
        if (!rule.until || !rule.until->isUtc || m_parts.isAllDay())
            return;
        const auto begin = readings.begin() + static_cast<std::ptrdiff_t>(first);
        readings.erase(std::remove_if(begin, readings.end(),
                                      [&](CivilSeconds reading) {
                                          return m_parts.zone().toUtc(reading) > rule.until->civil;
                                      }),
                       readings.end());
    }

    void placeDate(const AddedDate &date, std::set<UtcSeconds> &known) {
        const UtcSeconds instant = m_parts.instantOf(date.start);
        if (!known.insert(instant).second)
            return;
        EventLength length = m_parts.length();
        if (date.duration)
            length = EventLength(*date.duration);
        else if (date.end)
            length = EventLength(instant, m_parts.instantOf(*date.end));
        placeStart(m_parts.zone().toCivil(instant), instant, length);
    }

    /// `reading` is what the series' own clock shows at the start, or would have shown had it not
    /// been put forward.
    void placeStart(CivilSeconds reading, UtcSeconds start, const EventLength &length) {
        const Zone &zone = m_parts.zone();
        if (m_parts.leftOut().holds(start, civilDay(reading)))
            return;
        const auto &continuations = m_parts.continuations();
        const auto next = std::upper_bound(
            continuations.begin(), continuations.end(), start,
            [](UtcSeconds instant, const Continuation &one) { return instant < one.from; });
        if (next == continuations.begin())
            return place(*m_parts.master(), start, length.endOf(reading, start, zone));

        const Continuation &continuation = *std::prev(next);
        const Zone &movedZone = m_clock.zoneOf(continuation.component->start);
        const CivilSeconds moved = movedZone.toCivil(start) + continuation.shift;
        const UtcSeconds instant = movedZone.toUtc(moved);
        place(*continuation.component, instant,
              continuation.length.endOf(moved, instant, movedZone));
    }

    void placeSingle(const EventComponent &component) {
        const UtcSeconds start = m_clock.instantOf(component.start);
        const EventLength length(component, m_clock);
        place(component, start,
              length.endOf(component.start.civil, start, m_clock.zoneOf(component.start)));
    }

    void place(const EventComponent &component, UtcSeconds start, UtcSeconds end) {
        if (m_window.overlaps(start, end))
            m_expansion.occurrences.push_back({start, end, &component});
        else if (start >= m_window.to)
            noteDue(start);
    }

    void noteDue(UtcSeconds due) { m_expansion.due = std::min(m_expansion.due, due); }

    SeriesParts &m_parts;
    const UserClock &m_clock;
    const Window m_window;
    StepBudget &m_budget;
    Problems &m_problems;
    Expansion m_expansion;
};

} // namespace

Expansion SeriesExpander::expand(const std::vector<const EventComponent *> &components,
                                 StepBudget &budget, Problems &problems) const {
    SeriesParts parts(components, m_clock, problems);
    return Placing(parts, m_clock, m_window, budget, problems).run();
}

} // namespace vantrel
