#pragma once

#include "EventComponent.h"
#include "Problems.h"

#include <QByteArray>
#include <QString>

#include <deque>
#include <vector>

namespace vantrel {

/// A calendar text, read. Its events hold views into `text`: it can be moved, not copied.
struct CalendarText {
    CalendarText() = default;
    CalendarText(CalendarText &&) = default;
    CalendarText &operator=(CalendarText &&) = default;
    CalendarText(const CalendarText &) = delete;
    CalendarText &operator=(const CalendarText &) = delete;
    ~CalendarText() = default;

    QByteArray text;
    std::vector<EventComponent> events;
    std::deque<NamedZone> zones; ///< What the moments point to.
    QString name;                ///< X-WR-CALNAME or NAME; empty when there is none.
    QString color; ///< COLOR or X-APPLE-CALENDAR-COLOR, as written; empty when there is none.
    bool isComplete = false; ///< Begins and ends as a calendar; a half-written one does not end.
    Problems problems;
};

} // namespace vantrel
