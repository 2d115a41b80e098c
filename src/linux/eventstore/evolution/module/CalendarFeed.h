#pragma once

#include "AnswerTable.h"
#include "ConnectSlots.h"
#include "ContextTimer.h"
#include "RemoteCalendar.h"

#include <linux/eventstore/evolution/Pace.h>
#include <linux/eventstore/ical/Window.h>

#include <QString>

#include <functional>
#include <memory>

namespace vantrel {

class CalendarView;
class SeriesWatch;
class ZoneTexts;

/// Keeps the table's part of one calendar in line with it, for as long as that takes: whatever
/// fails is logged once, tried again with growing pauses, and its return is logged too. Until then
/// the table keeps what was there. On the service's thread.
class CalendarFeed : public std::enable_shared_from_this<CalendarFeed> {
public:
    struct Surroundings {
        GDBusConnection *bus;
        AnswerTable &table;
        ConnectSlots &slots;
        std::function<void()> noteChange; ///< An answer of the table has become different.
        FeedPatience patience = {};
    };

    /// `source` is what the service calls it, `identifier` what the table does.
    CalendarFeed(QByteArray source, QString identifier, Surroundings surroundings);
    CalendarFeed(const CalendarFeed &) = delete;
    CalendarFeed &operator=(const CalendarFeed &) = delete;
    ~CalendarFeed();

    void start(Window window);
    void setWindow(Window window);

    /// What keeps the calendar from its server, once for the log; see `ListedSource`.
    void noteObstacle(const std::optional<QByteArray> &obstacle);

private:
    void queue();
    void connect();
    void watchSeries();
    void openView();
    void take();
    void noteProgress();
    void noteComplaint(const QByteArray &message);
    void fail(const QByteArray &reason);
    void disconnect();
    void noteIf(bool isDifferent);

    const Reference<GDBusConnection> m_bus;
    const QByteArray m_source;
    const QString m_identifier;
    const Surroundings m_surroundings;
    Window m_window;

    std::shared_ptr<RemoteCalendar> m_calendar; ///< The present connection.
    std::shared_ptr<ZoneTexts> m_zones;
    std::unique_ptr<SeriesWatch> m_series;
    std::shared_ptr<CalendarView> m_view; ///< What the table shows.
    std::shared_ptr<CalendarView> m_next; ///< What will take its place once it is filled.

    ConnectSlots::Ticket m_ticket;
    ContextTimer m_deadline; ///< Of the next sign of life.
    ContextTimer m_retry;
    ContextTimer m_steady; ///< Until it counts as sound again, and pauses begin anew.
    RetryPause m_pause;
    bool m_isTrouble = false;   ///< And the log says so.
    QByteArray m_obstacle;      ///< Stands in the log.
    QByteArray m_lastComplaint; ///< Stands in the log.
};

} // namespace vantrel
