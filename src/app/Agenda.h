#pragma once

#include <calendar/UpcomingEvent.h>
#include <platform/EventStore.h>
#include <platform/LocalCalendar.h>

#include <QByteArray>

#include <vector>

namespace vantrel {

/// The upcoming events as printed for people and for programs.
struct Agenda {
    Agenda() = delete;

    /// Whether all calendars were read, or some are out of reach.
    enum class Extent { whole, partial };

    /// One JSON object with "now", "events" and "isComplete", in UTF-8 with a line break at the
    /// end. Its members are a stable interface: see docs/agenda.md. `store` names the calendar of
    /// each event.
    static QByteArray json(const std::vector<UpcomingEvent> &events, Instant now, Extent extent,
                           const EventStore &store, const LocalCalendar &calendar);

    /// Lines under a heading for each day, in UTF-8, without any control character but the line
    /// break: titles come from strangers and must not drive a terminal.
    static QByteArray text(const std::vector<UpcomingEvent> &events, const LocalCalendar &calendar);
};

} // namespace vantrel
