#include "RandomRule.h"

#include <QDate>
#include <QDateTime>

#include <algorithm>
#include <map>

namespace vantrel::tests {

namespace {

int below(std::mt19937 &random, int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
}

bool chance(std::mt19937 &random, int percent) {
    return below(random, 100) < percent;
}

QDateTime dateTime(CivilSeconds civil) {
    return QDateTime::fromSecsSinceEpoch(civil, Qt::UTC);
}

template <typename List>
QByteArray part(const char *name, const List &list) {
    if (list.empty())
        return {};
    QByteArray text = ";" + QByteArray(name) + "=";
    bool isFirst = true;
    for (const int value : list) {
        text += (isFirst ? "" : ",") + QByteArray::number(value);
        isFirst = false;
    }
    return text;
}

constexpr const char *weekdays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

/// Which period of the rule a day lies in, counted from the one of the start.
int periodOf(const RandomRule &rule, QDate day, QDate start) {
    switch (rule.frequency) {
    case RandomRule::Frequency::daily:
        return static_cast<int>(start.daysTo(day));
    case RandomRule::Frequency::weekly: {
        const auto weekBegin = [&rule](QDate one) {
            while (one.dayOfWeek() % 7 != rule.weekStart)
                one = one.addDays(-1);
            return one;
        };
        return static_cast<int>(weekBegin(start).daysTo(weekBegin(day)) / 7);
    }
    case RandomRule::Frequency::monthly:
        return (day.year() - start.year()) * 12 + day.month() - start.month();
    case RandomRule::Frequency::yearly:
        return day.year() - start.year();
    }
    return 0;
}

bool isNthWeekday(QDate day, int ordinal, bool isInMonth) {
    int before = 0;
    int behind = 0;
    const auto isSame = [&](QDate other) {
        return other.year() == day.year() && (!isInMonth || other.month() == day.month());
    };
    for (QDate other = day.addDays(-7); isSame(other); other = other.addDays(-7))
        ++before;
    for (QDate other = day.addDays(7); isSame(other); other = other.addDays(7))
        ++behind;
    return ordinal == before + 1 || ordinal == -(behind + 1);
}

bool isMeant(const RandomRule &rule, QDate day, QDate start) {
    using Frequency = RandomRule::Frequency;
    const bool isFree = rule.days.empty() && rule.monthDays.empty();
    if (!rule.months.empty() && rule.months.count(day.month()) == 0)
        return false;
    if (!rule.monthDays.empty() && rule.monthDays.count(day.day()) == 0 &&
        rule.monthDays.count(day.day() - day.daysInMonth() - 1) == 0)
        return false;
    if (isFree && rule.frequency == Frequency::weekly && day.dayOfWeek() != start.dayOfWeek())
        return false;
    if (isFree && rule.frequency >= Frequency::monthly && day.day() != start.day())
        return false;
    if (isFree && rule.frequency == Frequency::yearly && rule.months.empty() &&
        day.month() != start.month())
        return false;
    if (rule.days.empty())
        return true;
    return std::any_of(rule.days.begin(), rule.days.end(), [&](const auto &one) {
        if (day.dayOfWeek() % 7 != one.second)
            return false;
        const bool isInMonth = rule.frequency == Frequency::monthly || !rule.months.empty();
        return one.first == 0 || isNthWeekday(day, one.first, isInMonth);
    });
}

} // namespace

RandomRule::RandomRule(std::mt19937 &random) {
    frequency = static_cast<Frequency>(below(random, 4));
    interval = chance(random, 50) ? 1 : 1 + below(random, 5);
    const QDate day = QDate(2018, 1, 1).addDays(below(random, 3000));
    start =
        QDateTime(day, QTime(below(random, 24), below(random, 4) * 15), Qt::UTC).toSecsSinceEpoch();
    if (chance(random, 30))
        weekStart = below(random, 7);
    if (chance(random, 30))
        count = 1 + below(random, 60);
    else if (chance(random, 30))
        until = start + below(random, 1500) * secondsPerDay + below(random, 86400);
    const bool countsDays = frequency == Frequency::monthly || frequency == Frequency::yearly;
    if (chance(random, 25))
        for (int times = 1 + below(random, 3); times > 0; --times)
            months.insert(1 + below(random, 12));
    if (countsDays && chance(random, 35))
        for (int times = 1 + below(random, 4); times > 0; --times)
            monthDays.insert(chance(random, 30) ? -1 - below(random, 31) : 1 + below(random, 31));
    if (chance(random, 45))
        for (int times = 1 + below(random, 4); times > 0; --times) {
            int ordinal = 0;
            if (countsDays && chance(random, 50))
                ordinal = (chance(random, 40) ? -1 : 1) * (1 + below(random, 5));
            days.emplace(ordinal, below(random, 7));
        }
    if (chance(random, 20))
        for (int times = 1 + below(random, 3); times > 0; --times)
            hours.insert(below(random, 24));
    if (chance(random, 20))
        for (int times = 1 + below(random, 2); times > 0; --times)
            positions.insert((chance(random, 40) ? -1 : 1) * (1 + below(random, 6)));
}

QByteArray RandomRule::text() const {
    static constexpr const char *names[] = {"DAILY", "WEEKLY", "MONTHLY", "YEARLY"};
    QByteArray text = "FREQ=" + QByteArray(names[static_cast<int>(frequency)]);
    if (interval > 1)
        text += ";INTERVAL=" + QByteArray::number(interval);
    if (count > 0)
        text += ";COUNT=" + QByteArray::number(count);
    if (until > 0)
        text += ";UNTIL=" + civilText(until, false) + "Z";
    if (weekStart != 1)
        text += ";WKST=" + QByteArray(weekdays[weekStart]);
    text += part("BYMONTH", months) + part("BYMONTHDAY", monthDays) + part("BYHOUR", hours) +
            part("BYSETPOS", positions);
    bool isFirst = true;
    for (const auto &[ordinal, weekday] : days) {
        text += (isFirst ? ";BYDAY=" : ",") +
                (ordinal == 0 ? QByteArray() : QByteArray::number(ordinal)) + weekdays[weekday];
        isFirst = false;
    }
    return text;
}

std::vector<CivilSeconds> plainReadings(const RandomRule &rule, CivilSeconds to) {
    const QDateTime start = dateTime(rule.start);
    std::map<int, std::vector<CivilSeconds>> periods;
    // From the beginning of the period that holds the start: positions count from there.
    for (QDate day = start.date().addDays(-366); day <= dateTime(to).date().addDays(366);
         day = day.addDays(1)) {
        const int period = periodOf(rule, day, start.date());
        if (period < 0 || period % rule.interval != 0 || !isMeant(rule, day, start.date()))
            continue;
        const std::set<int> hours =
            rule.hours.empty() ? std::set<int>{start.time().hour()} : rule.hours;
        for (const int hour : hours)
            periods[period].push_back(
                QDateTime(day, QTime(hour, start.time().minute()), Qt::UTC).toSecsSinceEpoch());
    }
    std::vector<CivilSeconds> readings{rule.start};
    for (const auto &[period, set] : periods) {
        const int size = static_cast<int>(set.size());
        for (int index = 0; index < size; ++index) {
            const bool isPlaced = rule.positions.empty() || rule.positions.count(index + 1) > 0 ||
                                  rule.positions.count(index - size) > 0;
            if (isPlaced && set[static_cast<std::size_t>(index)] > rule.start)
                readings.push_back(set[static_cast<std::size_t>(index)]);
        }
    }
    if (rule.until > 0)
        std::erase_if(readings,
                      [&rule](CivilSeconds one) { return one > rule.until && one != rule.start; });
    if (rule.count > 0 && readings.size() > static_cast<std::size_t>(rule.count))
        readings.resize(static_cast<std::size_t>(rule.count));
    std::erase_if(readings, [to](CivilSeconds one) { return one >= to; });
    return readings;
}

} // namespace vantrel::tests
