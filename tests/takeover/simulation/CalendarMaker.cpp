#include "CalendarMaker.h"

#include <QDateTime>

namespace vantrel::simulation {

namespace {

std::int64_t secondOf(QDate date, int hour, int minute, const QTimeZone &zone) {
    return QDateTime(date, QTime(hour, minute), zone).toSecsSinceEpoch();
}

} // namespace

CalendarMaker::CalendarMaker(Chance &chance) : m_chance(chance) {
    for (int count = 0; count < 3; ++count) {
        Meeting first = single(0);
        first.isOfASeries = true;
        m_series.push_back({first, static_cast<int>(m_chance.between(0, 23)),
                            static_cast<int>(5 * m_chance.between(0, 11)),
                            m_chance.oneOf({1, 1, 2, 7}), anyLength()});
    }
}

const std::set<QString> &CalendarMaker::calendars() {
    static const std::set<QString> all{QStringLiteral("club"), QStringLiteral("home"),
                                       QStringLiteral("work")};
    return all;
}

QString CalendarMaker::anyCalendar() {
    return m_chance.oneOf({QStringLiteral("work"), QStringLiteral("work"), QStringLiteral("home"),
                           QStringLiteral("club")});
}

Way CalendarMaker::anyWay() {
    return m_chance.oneOf({Way::video, Way::video, Way::phone, Way::place, Way::nothing});
}

std::int64_t CalendarMaker::anyLength() {
    return m_chance.oneOf<std::int64_t>(
        {0, 60, 240, 299, 300, 301, 900, 1800, 1800, 3600, 3600, 5400, 4 * 3600});
}

Meeting CalendarMaker::single(std::int64_t start) {
    Meeting meeting;
    meeting.identifier = freshIdentifier();
    meeting.title = QStringLiteral("Meeting ") + meeting.identifier;
    meeting.calendar = anyCalendar();
    meeting.start = start;
    meeting.end = start + anyLength();
    meeting.way = anyWay();
    meeting.isAllDay = m_chance.oneIn(20);
    meeting.isCancelled = m_chance.oneIn(20);
    meeting.isDeclined = m_chance.oneIn(20);
    return meeting;
}

std::vector<Meeting> CalendarMaker::day(QDate date, const QTimeZone &zone) {
    std::vector<Meeting> meetings;
    addOccurrences(meetings, date, zone);
    const std::int64_t count = m_chance.between(0, 6);
    for (std::int64_t made = 0; made < count; ++made) {
        const int hour =
            static_cast<int>(m_chance.oneIn(4) ? m_chance.between(0, 23) : m_chance.between(8, 17));
        std::int64_t start =
            secondOf(date, hour, static_cast<int>(5 * m_chance.between(0, 11)), zone);
        if (m_chance.oneIn(10))
            start += m_chance.between(0, 299);
        if (!meetings.empty() && m_chance.oneIn(4))
            start = m_chance.oneIn(2) ? meetings.back().start : meetings.back().end;
        meetings.push_back(single(start));
    }
    return meetings;
}

void CalendarMaker::addOccurrences(std::vector<Meeting> &meetings, QDate date,
                                   const QTimeZone &zone) {
    for (const Series &series : m_series) {
        if (date.toJulianDay() % series.everyDays != 0)
            continue;
        Meeting occurrence = series.first;
        occurrence.start = secondOf(date, series.hour, series.minute, zone);
        occurrence.end = occurrence.start + series.length;
        occurrence.title += QStringLiteral(" of ") + date.toString(Qt::ISODate);
        if (m_chance.oneIn(10)) { // An override is an event of its own.
            occurrence.identifier = freshIdentifier();
            occurrence.start += 900;
            occurrence.end += 1800;
        }
        meetings.push_back(occurrence);
        if (m_chance.oneIn(30)) { // A calendar that lists an occurrence twice.
            occurrence.title += QStringLiteral(" again");
            occurrence.end += 60;
            meetings.push_back(occurrence);
        }
    }
}

} // namespace vantrel::simulation
