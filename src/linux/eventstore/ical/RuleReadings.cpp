#include "RuleReadings.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel {

namespace {

using Frequency = RecurrenceRule::Frequency;

constexpr int stepsPerReading = 5;

/// No calendar text can name a later moment.
constexpr CivilSeconds endOfTime =
    std::chrono::sys_days{std::chrono::year{9999} / 12 / 31}.time_since_epoch().count() *
    secondsPerDay;

std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

/// Months since the year 0.
std::int64_t monthOf(CivilSeconds reading) {
    const std::chrono::year_month_day date{
        std::chrono::sys_days{std::chrono::days{civilDay(reading)}}};
    return static_cast<int>(date.year()) * 12 +
           static_cast<int>(static_cast<unsigned>(date.month())) - 1;
}

/// A year has to fit its type: the month behind the end of time stands for all later ones.
CivilSeconds startOfMonth(std::int64_t month) {
    month = std::min<std::int64_t>(month, 10'000 * 12);
    const std::chrono::year_month_day date{
        std::chrono::year(static_cast<int>(floorDivide(month, 12))),
        std::chrono::month(static_cast<unsigned>(month - floorDivide(month, 12) * 12) + 1),
        std::chrono::day(1)};
    return std::chrono::sys_days(date).time_since_epoch().count() * secondsPerDay;
}

/// Seconds in a period; 0 for months and years, whose lengths differ.
std::int64_t lengthOf(Frequency frequency) {
    switch (frequency) {
    case Frequency::secondly:
        return 1;
    case Frequency::minutely:
        return 60;
    case Frequency::hourly:
        return 3600;
    case Frequency::daily:
        return secondsPerDay;
    case Frequency::weekly:
        return 7 * secondsPerDay;
    case Frequency::monthly:
    case Frequency::yearly:
        break;
    }
    return 0;
}

/// The units of a time of day that the rule names; else the start's own, unless a period is no
/// longer than the unit, so that all of them come up.
template <typename Set>
Set unitsOf(Set named, bool isWalked, std::int64_t ofStart) {
    if (named != 0)
        return named;
    return isWalked ? ~Set{0} : Set{1} << ofStart;
}

/// Calls `take` with each bit of the set from `first` to `last`; false as soon as it answers so.
template <typename Set, typename Take>
bool forEachBit(Set set, int first, int last, Take take) {
    for (int bit = first; bit <= last; ++bit) {
        if ((set >> bit & 1) != 0 && !take(bit))
            return false;
    }
    return true;
}

/// Each day is held against all numbers of the rule's lists.
int stepsPerDay(const RecurrenceRule &rule) {
    constexpr std::size_t numbersPerStep = 8;
    return 1 + static_cast<int>((rule.days.size() + rule.monthDays.size() + rule.yearDays.size() +
                                 rule.weekNumbers.size()) /
                                numbersPerStep);
}

} // namespace

RuleReadings::RuleReadings(const RecurrenceRule &rule, CivilSeconds start,
                           std::optional<CivilSeconds> until)
    : m_rule(rule),
      m_days(rule, start),
      m_start(start),
      m_until(until),
      m_stepsPerDay(stepsPerDay(rule)) {
    const std::int64_t time = start - startOfCivilDay(start);
    m_hours = unitsOf(rule.hours, rule.frequency <= Frequency::hourly, time / 3600);
    m_minutes = unitsOf(rule.minutes, rule.frequency <= Frequency::minutely, time / 60 % 60);
    m_seconds = unitsOf(rule.seconds, rule.frequency <= Frequency::secondly, time % 60);
}

RuleReadings::End RuleReadings::collect(CivilSeconds from, CivilSeconds to, int &steps,
                                        std::vector<CivilSeconds> &readings) {
    if (m_start >= from && m_start < to)
        readings.push_back(m_start);
    if (m_until && *m_until < std::max(from, m_start))
        return End::ofRule;

    const CivilSeconds limit = std::min(m_until ? std::min(*m_until, to - 1) : to - 1, endOfTime);
    std::int64_t count = 1;
    std::int64_t index = firstPeriod(from);
    if (m_rule.count > 0 && !countBefore(index, count, steps))
        return End::ofPatience;
    for (; period(index).first <= limit; ++index) {
        if (m_rule.count > 0 && count >= m_rule.count)
            return End::ofRule;
        if (!fill(index, steps))
            return End::ofPatience;
        for (const CivilSeconds reading : m_set) {
            const bool isCounted = m_rule.count == 0 || count < m_rule.count;
            if (reading <= m_start || reading > limit || !isCounted)
                continue;
            ++count;
            if (reading >= from)
                readings.push_back(reading);
        }
    }
    const bool isCountReached = m_rule.count > 0 && count >= m_rule.count;
    return isCountReached || (m_until && *m_until < to) ? End::ofRule : End::ofInterval;
}

/// Whether each period behind that of the start yields equally many readings.
bool RuleReadings::isEven() const {
    const bool isOfWeekdays = m_rule.months == 0 && m_rule.monthDays.empty() &&
                              m_rule.yearDays.empty() && m_rule.weekNumbers.empty();
    return isOfWeekdays && (m_rule.frequency == Frequency::weekly ||
                            (m_rule.frequency == Frequency::daily && m_rule.days.empty()));
}

/// With COUNT every period since the start has to be looked at, unless one tells of all.
std::int64_t RuleReadings::firstPeriod(CivilSeconds from) const {
    if (from <= m_start || (m_rule.count > 0 && !isEven()))
        return 0;
    return (indexOfPeriod(from) - indexOfPeriod(m_start)) / m_rule.interval;
}

/// Adds the readings of the periods before that one, which are even. False when the steps do not
/// suffice.
bool RuleReadings::countBefore(std::int64_t index, std::int64_t &count, int &steps) {
    if (index > 0) {
        if (!fill(0, steps))
            return false;
        count += std::count_if(m_set.begin(), m_set.end(),
                               [this](CivilSeconds reading) { return reading > m_start; });
    }
    if (index > 1) {
        if (!fill(1, steps))
            return false;
        count += (index - 1) * static_cast<std::int64_t>(m_set.size());
    }
    return true;
}

/// Which period of the rule's kind holds the reading, the interval left out of account.
std::int64_t RuleReadings::indexOfPeriod(CivilSeconds reading) const {
    switch (m_rule.frequency) {
    case Frequency::yearly:
        return floorDivide(monthOf(reading), 12);
    case Frequency::monthly:
        return monthOf(reading);
    case Frequency::weekly:
        // 1970-01-01 was a Thursday: this counts weeks from the Sunday before, or whenever one
        // starts.
        return floorDivide(civilDay(reading) + 4 - m_rule.weekStart, 7);
    default:
        return floorDivide(reading, lengthOf(m_rule.frequency));
    }
}

/// Begin and end of the rule's period with that index, counted from the one of the start.
std::pair<CivilSeconds, CivilSeconds> RuleReadings::period(std::int64_t index) const {
    const std::int64_t place = indexOfPeriod(m_start) + index * m_rule.interval;
    switch (m_rule.frequency) {
    case Frequency::yearly:
        return {startOfMonth(place * 12), startOfMonth(place * 12 + 12)};
    case Frequency::monthly:
        return {startOfMonth(place), startOfMonth(place + 1)};
    case Frequency::weekly: {
        const CivilSeconds begin = (place * 7 - 4 + m_rule.weekStart) * secondsPerDay;
        return {begin, begin + lengthOf(Frequency::weekly)};
    }
    default: {
        const std::int64_t length = lengthOf(m_rule.frequency);
        return {place * length, (place + 1) * length};
    }
    }
}

/// Puts the readings of one period into the set. False when the steps do not suffice.
bool RuleReadings::fill(std::int64_t index, int &steps) {
    m_set.clear();
    const auto [begin, end] = period(index);
    steps -= static_cast<int>(1 + (end - begin) / secondsPerDay * m_stepsPerDay);
    if (steps < 0)
        return false;
    for (std::int64_t day = civilDay(begin); day * secondsPerDay < end; ++day) {
        if (m_days.holds(day) && !fillDay(day, begin, end, steps))
            return false;
    }
    if (!m_rule.positions.empty())
        keepPositions();
    return true;
}

/// `begin` and `end` bound the period, which may be shorter than the day.
bool RuleReadings::fillDay(std::int64_t day, CivilSeconds begin, CivilSeconds end, int &steps) {
    const CivilSeconds midnight = day * secondsPerDay;
    const auto first = static_cast<int>(std::max<CivilSeconds>(begin - midnight, 0));
    const auto last = static_cast<int>(std::min<CivilSeconds>(end - midnight, secondsPerDay)) - 1;
    const bool isOneHour = first / 3600 == last / 3600;
    const bool isOneMinute = first / 60 == last / 60;
    const bool isOneSecond = first == last;
    return forEachBit(m_hours, first / 3600, last / 3600, [&](int hour) {
        const int firstMinute = isOneHour ? first / 60 % 60 : 0;
        const int lastMinute = isOneHour ? last / 60 % 60 : 59;
        return forEachBit(m_minutes, firstMinute, lastMinute, [&](int minute) {
            const int firstSecond = isOneMinute ? first % 60 : 0;
            const int lastSecond = isOneSecond ? first % 60 : 59;
            return forEachBit(m_seconds, firstSecond, lastSecond, [&](int second) {
                m_set.push_back(midnight + hour * 3600 + minute * 60 + second);
                return (steps -= stepsPerReading) >= 0;
            });
        });
    });
}

void RuleReadings::keepPositions() {
    const auto size = static_cast<std::int64_t>(m_set.size());
    std::vector<CivilSeconds> kept;
    for (const int position : m_rule.positions) {
        const std::int64_t index = position > 0 ? position - 1 : size + position;
        if (index >= 0 && index < size)
            kept.push_back(m_set[static_cast<std::size_t>(index)]);
    }
    std::sort(kept.begin(), kept.end());
    kept.erase(std::unique(kept.begin(), kept.end()), kept.end());
    m_set = std::move(kept);
}

} // namespace vantrel
