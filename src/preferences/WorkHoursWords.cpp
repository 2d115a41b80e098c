#include "WorkHoursWords.h"

#include "TimeSetting.h"

#include <QStringList>

#include <algorithm>

namespace vantrel {

namespace {

constexpr int daysOfWeek = 7;

/// Of Qt's count, which is from Monday = 1.
int qtDay(int weekday) {
    return (weekday + 5) % daysOfWeek + 1;
}

QString listed(QStringList names) {
    if (names.size() == 1)
        return names.front();
    const QString last = names.takeLast();
    return QStringLiteral("%1 and %2").arg(names.join(QStringLiteral(", ")), last);
}

/// Empty when none of the seven is among them.
QString dayWords(const std::set<std::int64_t> &weekdays, const QLocale &locale) {
    const std::vector<int> order = weekdaysInOrder(locale);
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < order.size(); ++place) {
        if (weekdays.contains(order[place]))
            places.push_back(place);
    }
    if (places.size() == order.size())
        return QStringLiteral("Every day");
    const bool isRun = places.size() > 2 && places.back() - places.front() + 1 == places.size();
    if (isRun)
        return QStringLiteral("%1 to %2")
            .arg(weekdayName(order[places.front()], locale),
                 weekdayName(order[places.back()], locale));
    QStringList names;
    for (const std::size_t place : places)
        names.append(weekdayName(order[place], locale));
    return names.isEmpty() ? QString() : listed(names);
}

} // namespace

std::vector<int> weekdaysInOrder(const QLocale &locale) {
    std::vector<int> order{1, 2, 3, 4, 5, 6, 7};
    const auto first = std::find_if(order.begin(), order.end(), [&locale](int weekday) {
        return qtDay(weekday) == locale.firstDayOfWeek();
    });
    std::rotate(order.begin(), first, order.end());
    return order;
}

QString weekdayName(int weekday, const QLocale &locale, QLocale::FormatType format) {
    return locale.standaloneDayName(qtDay(weekday), format);
}

QString workHoursWords(std::int64_t startMinute, std::int64_t endMinute,
                       const std::set<std::int64_t> &weekdays, const LocalCalendar &calendar) {
    const QString days = dayWords(weekdays, calendar.locale());
    if (days.isEmpty())
        return QStringLiteral("No day is chosen: Tobble stays quiet all week.");
    if (startMinute == endMinute)
        return QStringLiteral("It ends when it starts: Tobble stays quiet all day.");
    const QString start = timeOfDayText(startMinute, calendar);
    const QString end = timeOfDayText(endMinute, calendar);
    if (startMinute < endMinute)
        return QStringLiteral("%1: takeovers come from %2 to %3.").arg(days, start, end);
    if (endMinute == 0)
        return QStringLiteral("%1: takeovers come from %2 to midnight.").arg(days, start);
    return QStringLiteral("%1: takeovers come until %2, and again from %3 to midnight.")
        .arg(days, end, start);
}

} // namespace vantrel
