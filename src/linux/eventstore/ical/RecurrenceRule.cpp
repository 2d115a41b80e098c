#include "RecurrenceRule.h"

#include "ContentLines.h"
#include "ValueList.h"

#include <QByteArray>

#include <algorithm>
#include <cstdlib>

namespace vantrel {

namespace {

constexpr qsizetype maximumLength = 4096;
constexpr int maximumInterval = 100'000;

/// A whole number, with or without a sign.
std::optional<int> parseNumber(QByteArrayView text) {
    const bool isSigned = text.startsWith('+') || text.startsWith('-');
    const QByteArrayView digits = text.sliced(isSigned ? 1 : 0);
    if (digits.isEmpty() || digits.size() > 10 ||
        !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    bool isNumber = false;
    const int value = text.toByteArray().toInt(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::optional<int> parseWeekday(QByteArrayView text) {
    static constexpr const char *names[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    for (int weekday = 0; weekday < 7; ++weekday) {
        if (isWord(text, names[weekday]))
            return weekday;
    }
    return std::nullopt;
}

std::optional<RecurrenceRule::Frequency> parseFrequency(QByteArrayView text) {
    static constexpr const char *names[] = {"SECONDLY", "MINUTELY", "HOURLY", "DAILY",
                                            "WEEKLY",   "MONTHLY",  "YEARLY"};
    for (int index = 0; index < 7; ++index) {
        if (isWord(text, names[index]))
            return static_cast<RecurrenceRule::Frequency>(index);
    }
    return std::nullopt;
}

/// Whether each value of the list is taken.
template <typename Take>
bool takesAll(QByteArrayView list, Take take) {
    bool isTaken = true;
    forEachValue(list, [&](QByteArrayView value) { isTaken = isTaken && take(value); });
    return isTaken;
}

/// Numbers from `least` to `most`.
template <typename Set>
bool readSet(QByteArrayView list, int least, int most, Set &set) {
    return takesAll(list, [&](QByteArrayView part) {
        const auto number = parseNumber(part);
        if (!number || *number < least || *number > most)
            return false;
        set |= Set{1} << *number;
        return true;
    });
}

/// Numbers from 1 to `most`, and the same with a minus sign.
bool readList(QByteArrayView list, int most, std::vector<int> &numbers) {
    return takesAll(list, [&](QByteArrayView part) {
        const auto number = parseNumber(part);
        if (!number || *number == 0 || std::abs(*number) > most)
            return false;
        numbers.push_back(*number);
        return true;
    });
}

bool readDays(QByteArrayView list, std::vector<RecurrenceRule::Day> &days) {
    return takesAll(list, [&](QByteArrayView part) {
        if (part.size() < 2)
            return false;
        const auto weekday = parseWeekday(part.last(2));
        const QByteArrayView ordinal = part.chopped(2);
        const auto number = ordinal.isEmpty() ? std::optional(0) : parseNumber(ordinal);
        if (!weekday || !number || std::abs(*number) > 53 || (*number == 0 && !ordinal.isEmpty()))
            return false;
        days.push_back({*number, *weekday});
        return true;
    });
}

/// A number from 1 to `most`.
bool readPositive(QByteArrayView text, int most, int &value) {
    const auto number = parseNumber(text);
    if (!number || *number < 1 || *number > most)
        return false;
    value = *number;
    return true;
}

bool readUntil(QByteArrayView text, RecurrenceRule &rule) {
    rule.until = parseDateTime(text);
    return rule.until.has_value();
}

bool readWeekStart(QByteArrayView text, RecurrenceRule &rule) {
    const auto weekday = parseWeekday(text);
    rule.weekStart = weekday.value_or(1);
    return weekday.has_value();
}

bool readSeconds(QByteArrayView text, RecurrenceRule &rule) {
    constexpr std::uint64_t leapSecond = std::uint64_t{1} << 60;
    if (!readSet(text, 0, 60, rule.seconds))
        return false;
    if ((rule.seconds & leapSecond) != 0)
        rule.seconds = (rule.seconds & ~leapSecond) | leapSecond >> 1;
    return true;
}

bool readPart(QByteArrayView name, QByteArrayView value, RecurrenceRule &rule) {
    if (isWord(name, "INTERVAL"))
        return readPositive(value, maximumInterval, rule.interval);
    if (isWord(name, "COUNT"))
        return readPositive(value, std::numeric_limits<int>::max(), rule.count);
    if (isWord(name, "UNTIL"))
        return readUntil(value, rule);
    if (isWord(name, "WKST"))
        return readWeekStart(value, rule);
    if (isWord(name, "BYMONTH"))
        return readSet(value, 1, 12, rule.months);
    if (isWord(name, "BYHOUR"))
        return readSet(value, 0, 23, rule.hours);
    if (isWord(name, "BYMINUTE"))
        return readSet(value, 0, 59, rule.minutes);
    if (isWord(name, "BYSECOND"))
        return readSeconds(value, rule);
    if (isWord(name, "BYDAY"))
        return readDays(value, rule.days);
    if (isWord(name, "BYMONTHDAY"))
        return readList(value, 31, rule.monthDays);
    if (isWord(name, "BYYEARDAY"))
        return readList(value, 366, rule.yearDays);
    if (isWord(name, "BYWEEKNO"))
        return readList(value, 53, rule.weekNumbers);
    if (isWord(name, "BYSETPOS"))
        return readList(value, 366, rule.positions);
    if (isWord(name, "RSCALE"))
        return isWord(value, "GREGORIAN");
    if (isWord(name, "SKIP"))
        return isWord(value, "OMIT");
    return name.startsWith("X-") || name.startsWith("x-");
}

} // namespace

std::optional<RecurrenceRule> RecurrenceRule::parse(QByteArrayView text, QString &problem) {
    problem = QStringLiteral("recurrence rule that cannot be read; only its first occurrence is "
                             "shown");
    if (text.size() > maximumLength)
        return std::nullopt;
    RecurrenceRule rule;
    bool hasFrequency = false;
    for (qsizetype at = 0; at < text.size();) {
        auto end = text.indexOf(';', at);
        end = end < 0 ? text.size() : end;
        const QByteArrayView part = text.sliced(at, end - at).trimmed();
        at = end + 1;
        if (part.isEmpty())
            continue;
        const auto equals = part.indexOf('=');
        if (equals < 0)
            return std::nullopt;
        const QByteArrayView name = part.first(equals);
        const QByteArrayView value = part.sliced(equals + 1);
        if (isWord(name, "FREQ")) {
            const auto frequency = parseFrequency(value);
            if (!frequency)
                return std::nullopt;
            rule.frequency = *frequency;
            hasFrequency = true;
        } else if (!readPart(name, value, rule)) {
            return std::nullopt;
        }
    }
    if (!hasFrequency)
        return std::nullopt;
    problem.clear();
    return rule;
}

bool RecurrenceRule::makeWholeDays() {
    hours = 0;
    minutes = 0;
    seconds = 0;
    return frequency >= Frequency::daily;
}

} // namespace vantrel
