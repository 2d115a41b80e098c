#include "RuleDays.h"

#include <algorithm>
#include <chrono>

namespace vantrel {

namespace {

using Frequency = RecurrenceRule::Frequency;

std::chrono::year_month_day dateOf(std::int64_t day) {
    return std::chrono::sys_days{std::chrono::days{day}};
}

std::int64_t firstDayOf(std::chrono::year year) {
    return std::chrono::sys_days(year / 1 / 1).time_since_epoch().count();
}

int lengthOf(std::chrono::year year) {
    return year.is_leap() ? 366 : 365;
}

/// Whether a list names a number, counted from either end of a row of that length.
bool names(const std::vector<int> &list, int number, int length) {
    return std::any_of(list.begin(), list.end(), [number, length](int one) {
        return one == number || one == number - length - 1;
    });
}

bool isOrdinal(int ordinal, int number, int length) {
    return ordinal == (number - 1) / 7 + 1 || ordinal == -((length - number) / 7 + 1);
}

} // namespace

struct RuleDays::Place {
    explicit Place(std::int64_t day) {
        const auto date = dateOf(day);
        month = static_cast<unsigned>(date.month());
        dayOfMonth = static_cast<int>(static_cast<unsigned>(date.day()));
        monthLength = static_cast<int>(static_cast<unsigned>(
            std::chrono::year_month_day_last(date.year(), std::chrono::last / date.month()).day()));
        dayOfYear = static_cast<int>(day - firstDayOf(date.year())) + 1;
        yearLength = lengthOf(date.year());
    }

    unsigned month;
    int dayOfMonth;
    int monthLength;
    int dayOfYear;
    int yearLength;
};

RuleDays::RuleDays(const RecurrenceRule &rule, CivilSeconds start) : m_rule(rule) {
    m_hasOrdinals = (rule.frequency == Frequency::monthly || rule.frequency == Frequency::yearly) &&
                    rule.weekNumbers.empty();
    m_countsInMonth = rule.frequency == Frequency::monthly || rule.months != 0;
    if (!rule.days.empty() || !rule.monthDays.empty() || !rule.yearDays.empty())
        return;
    const Place place(civilDay(start));
    const int weekday = weekdayOf(civilDay(start));
    if (rule.frequency == Frequency::weekly || !rule.weekNumbers.empty()) {
        m_rule.days.push_back({0, weekday});
    } else if (rule.frequency == Frequency::monthly || rule.frequency == Frequency::yearly) {
        m_rule.monthDays.push_back(place.dayOfMonth);
        if (rule.frequency == Frequency::yearly && rule.months == 0)
            m_rule.months = 1U << place.month;
    }
}

bool RuleDays::holds(std::int64_t day) const {
    const Place place(day);
    if (m_rule.months != 0 && (m_rule.months >> place.month & 1) == 0)
        return false;
    if (!m_rule.monthDays.empty() && !names(m_rule.monthDays, place.dayOfMonth, place.monthLength))
        return false;
    if (!m_rule.yearDays.empty() && !names(m_rule.yearDays, place.dayOfYear, place.yearLength))
        return false;
    if (!m_rule.days.empty() && !holdsWeekday(place, weekdayOf(day)))
        return false;
    return m_rule.weekNumbers.empty() || holdsWeekNumber(day);
}

int RuleDays::weekdayOf(std::int64_t day) {
    return static_cast<int>(((day + 4) % 7 + 7) % 7); // 1970-01-01 was a Thursday.
}

bool RuleDays::holdsWeekday(const Place &place, int weekday) const {
    return std::any_of(m_rule.days.begin(), m_rule.days.end(), [&](const RecurrenceRule::Day &day) {
        if (day.weekday != weekday)
            return false;
        if (day.ordinal == 0 || !m_hasOrdinals)
            return true;
        return m_countsInMonth ? isOrdinal(day.ordinal, place.dayOfMonth, place.monthLength)
                               : isOrdinal(day.ordinal, place.dayOfYear, place.yearLength);
    });
}

/// A week belongs to the year in which most of it lies, and so does its number.
bool RuleDays::holdsWeekNumber(std::int64_t day) const {
    const int dayOfWeek = (weekdayOf(day) - m_rule.weekStart + 7) % 7;
    const std::int64_t middle = day - dayOfWeek + 3;
    const auto year = dateOf(middle).year();
    const int dayOfYear = static_cast<int>(middle - firstDayOf(year));
    const int weeks = (lengthOf(year) - 1 - dayOfYear % 7) / 7 + 1;
    return names(m_rule.weekNumbers, dayOfYear / 7 + 1, weeks);
}

} // namespace vantrel
