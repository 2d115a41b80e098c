#pragma once

#include "UpcomingEvent.h"

#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <QString>

#include <vector>

namespace vantrel {

/// How a day is titled.
class DayLabel {
public:
    enum class Kind { weekday, date, today, tomorrow };

    /// The name of a day of the coming week, in full.
    static DayLabel weekday(QString name);

    /// A date in the locale's medium style.
    static DayLabel date(QString text);

    static DayLabel today();
    static DayLabel tomorrow();

    [[nodiscard]] Kind kind() const { return m_kind; }

    /// The weekday's name or the date; empty for today and tomorrow.
    [[nodiscard]] const QString &text() const { return m_text; }

    bool operator==(const DayLabel &) const = default;

private:
    DayLabel(Kind kind, QString text);

    Kind m_kind;
    QString m_text;
};

/// The meetings that start on one calendar day, by start.
struct DayGroup {
    Instant day; ///< The start of the day; identifies the group.
    DayLabel label;
    std::vector<UpcomingEvent> events; ///< Never empty.

    /// Compares events by their `id` alone: an event with another title is the same one.
    bool operator==(const DayGroup &) const = default;
};

/// Sorts meetings into days. Pure functions, for any thread.
struct EventGrouper {
    EventGrouper() = delete;

    /// One group for each day on which a meeting starts, in the order of the days, for events in
    /// any order; events with the same start keep theirs.
    [[nodiscard]] static std::vector<DayGroup> groupByDay(const std::vector<UpcomingEvent> &events,
                                                          Instant now,
                                                          const LocalCalendar &calendar);

    /// Today, tomorrow, the five weekdays after them, and dates for all other days: a weekday's
    /// name never stands for a day of another week.
    [[nodiscard]] static DayLabel dayLabel(Instant day, Instant now, const LocalCalendar &calendar);
};

} // namespace vantrel
