#pragma once

#include "Chance.h"
#include "Meeting.h"

#include <QDate>
#include <QTimeZone>

#include <vector>

namespace vantrel::simulation {

/// Fills the days of somebody's calendars: single meetings and series, back to back, overlapping,
/// without length, all day, cancelled, declined.
class CalendarMaker {
public:
    explicit CalendarMaker(Chance &chance);

    /// The calendars that meetings are put in.
    static const std::set<QString> &calendars();

    /// A day's meetings, in no particular order.
    std::vector<Meeting> day(QDate date, const QTimeZone &zone);

    /// A meeting that begins at that second.
    Meeting single(std::int64_t start);

private:
    struct Series {
        Meeting first;
        int hour;
        int minute;
        int everyDays;
        std::int64_t length;
    };

    QString freshIdentifier() { return QStringLiteral("m%1").arg(++m_count); }
    QString anyCalendar();
    Way anyWay();
    std::int64_t anyLength();
    void addOccurrences(std::vector<Meeting> &meetings, QDate date, const QTimeZone &zone);

    Chance &m_chance;
    int m_count = 0;
    std::vector<Series> m_series;
};

} // namespace vantrel::simulation
