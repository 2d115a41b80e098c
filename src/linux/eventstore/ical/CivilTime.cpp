#include "CivilTime.h"

#include <QByteArray>

#include <chrono>
#include <cstdio>

namespace vantrel {

namespace {

constexpr std::int64_t longestSpanDays = 36525;

/// The number that stands in `text`, digits only; -1 for anything else.
int number(QByteArrayView text) {
    int value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9')
            return -1;
        value = value * 10 + (digit - '0');
    }
    return value;
}

std::optional<CivilSeconds> parseDay(QByteArrayView text) {
    const int year = number(text.first(4));
    const int month = number(text.sliced(4, 2));
    const int day = number(text.sliced(6, 2));
    if (year < 1 || month < 0 || day < 0)
        return std::nullopt;
    const auto date = std::chrono::year(year) / month / day;
    if (!date.ok())
        return std::nullopt;
    return std::chrono::sys_days(date).time_since_epoch().count() * secondsPerDay;
}

std::optional<int> parseTimeOfDay(QByteArrayView text) {
    const int hour = number(text.first(2));
    const int minute = number(text.sliced(2, 2));
    const int second = number(text.sliced(4, 2));
    if (hour == 24 && minute == 0 && second == 0)
        return secondsPerDay;
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 60)
        return std::nullopt;
    return hour * 3600 + minute * 60 + (second == 60 ? 59 : second);
}

std::int64_t secondsPerUnit(char unit) {
    switch (unit) {
    case 'H':
        return 3600;
    case 'M':
        return 60;
    case 'S':
        return 1;
    default:
        return 0;
    }
}

} // namespace

std::optional<DateTimeText> parseDateTime(QByteArrayView text) {
    text = text.trimmed();
    if (text.size() != 8 && text.size() != 15 && text.size() != 16)
        return std::nullopt;
    const auto day = parseDay(text);
    if (!day)
        return std::nullopt;
    if (text.size() == 8)
        return DateTimeText{*day, true, false};

    if (text[8] != 'T' && text[8] != 't')
        return std::nullopt;
    const bool isUtc = text.size() == 16;
    if (isUtc && text[15] != 'Z' && text[15] != 'z')
        return std::nullopt;
    const auto time = parseTimeOfDay(text.sliced(9, 6));
    if (!time)
        return std::nullopt;
    return DateTimeText{*day + *time, false, isUtc};
}

std::optional<Span> parseDuration(QByteArrayView text) {
    text = text.trimmed();
    if (text.startsWith('+'))
        text = text.sliced(1);
    if (!text.startsWith('P') || text.size() < 3)
        return std::nullopt;

    Span span;
    bool isTime = false;
    std::int64_t value = -1;
    for (const char character : text.sliced(1)) {
        if (character >= '0' && character <= '9') {
            value = (value < 0 ? 0 : value) * 10 + (character - '0');
            if (value > longestSpanDays * secondsPerDay)
                return std::nullopt;
            continue;
        }
        if (character == 'T') {
            if (isTime || value >= 0)
                return std::nullopt;
            isTime = true;
            continue;
        }
        if (value < 0)
            return std::nullopt;
        if (!isTime && (character == 'W' || character == 'D'))
            span.days += value * (character == 'W' ? 7 : 1);
        else if (isTime && secondsPerUnit(character) > 0)
            span.seconds += value * secondsPerUnit(character);
        else
            return std::nullopt;
        value = -1;
        if (span.days > longestSpanDays || span.seconds > longestSpanDays * secondsPerDay)
            return std::nullopt;
    }
    return value < 0 ? std::optional(span) : std::nullopt;
}

QByteArray civilText(CivilSeconds civil, bool isDate) {
    const std::chrono::sys_days day{std::chrono::days{civilDay(civil)}};
    const std::chrono::year_month_day date{day};
    const auto time = static_cast<int>(civil - startOfCivilDay(civil));
    char text[32];
    const int length =
        isDate
            ? std::snprintf(text, sizeof text, "%04d%02u%02u", static_cast<int>(date.year()),
                            static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()))
            : std::snprintf(text, sizeof text, "%04d%02u%02uT%02d%02d%02d",
                            static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                            static_cast<unsigned>(date.day()), time / 3600, time / 60 % 60,
                            time % 60);
    return QByteArray(text, length);
}

} // namespace vantrel
