#include "EventGrouper.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vantrel {

DayLabel::DayLabel(Kind kind, QString text) : m_kind(kind), m_text(std::move(text)) {}

DayLabel DayLabel::weekday(QString name) {
    return {Kind::weekday, std::move(name)};
}

DayLabel DayLabel::date(QString text) {
    return {Kind::date, std::move(text)};
}

DayLabel DayLabel::today() {
    return {Kind::today, {}};
}

DayLabel DayLabel::tomorrow() {
    return {Kind::tomorrow, {}};
}

std::vector<DayGroup> EventGrouper::groupByDay(const std::vector<UpcomingEvent> &events,
                                               Instant now, const LocalCalendar &calendar) {
    std::map<Instant, std::vector<UpcomingEvent>> days;
    for (const UpcomingEvent &event : events)
        days[calendar.startOfDay(event.startDate)].push_back(event);

    std::vector<DayGroup> groups;
    groups.reserve(days.size());
    for (auto &[day, eventsOfDay] : days) {
        std::ranges::stable_sort(eventsOfDay, {}, &UpcomingEvent::startDate);
        groups.push_back({day, dayLabel(day, now, calendar), std::move(eventsOfDay)});
    }
    return groups;
}

DayLabel EventGrouper::dayLabel(Instant day, Instant now, const LocalCalendar &calendar) {
    const int daysAhead = calendar.daysBetween(now, day);
    if (daysAhead == 0)
        return DayLabel::today();
    if (daysAhead == 1)
        return DayLabel::tomorrow();
    if (daysAhead >= 2 && daysAhead <= 6)
        return DayLabel::weekday(calendar.weekdayName(day));
    return DayLabel::date(calendar.mediumDate(day));
}

} // namespace vantrel
