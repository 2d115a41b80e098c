#pragma once

#include "AnswerTable.h"
#include "ConnectSlots.h"
#include "ContextTimer.h"
#include "GObjects.h"

#include <linux/eventstore/evolution/Pace.h>
#include <linux/eventstore/ical/Window.h>

#include <QString>

#include <libecal/libecal.h>

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
        AnswerTable &table;
        ConnectSlots &slots;
        std::function<void()> noteChange; ///< An answer of the table has become different.
    };

    CalendarFeed(ESource *source, QString identifier, Surroundings surroundings);
    CalendarFeed(const CalendarFeed &) = delete;
    CalendarFeed &operator=(const CalendarFeed &) = delete;
    ~CalendarFeed();

    void start(Window window);
    void setWindow(Window window);

private:
    static void backendDied(EClient *client, gpointer self);
    static void backendFailed(EClient *client, const gchar *message, gpointer self);
    static void readOnlyChanged(EClient *client, GParamSpec *property, gpointer self);

    void queue();
    void connect();
    void adopt(ECalClient *client);
    void askForAddresses();
    void watchSeries();
    void openView();
    void take();
    void noteProgress();
    void fail(const QByteArray &reason);
    void disconnect();
    void noteIf(bool isDifferent);

    const Reference<ESource> m_source;
    const QString m_identifier;
    const Surroundings m_surroundings;
    Window m_window;

    Reference<GCancellable> m_cancellable; ///< Of the present connection.
    Reference<ECalClient> m_client;
    std::shared_ptr<ZoneTexts> m_zones;
    std::shared_ptr<SeriesWatch> m_series;
    std::shared_ptr<CalendarView> m_view; ///< What the table shows.
    std::shared_ptr<CalendarView> m_next; ///< What will take its place once it is filled.

    ConnectSlots::Ticket m_ticket;
    ContextTimer m_deadline; ///< Of the next sign of life.
    ContextTimer m_retry;
    ContextTimer m_steady; ///< Until it counts as sound again, and pauses begin anew.
    RetryPause m_pause;
    bool m_isTrouble = false;      ///< And the log says so.
    QByteArray m_lastBackendError; ///< Stands in the log.
};

} // namespace vantrel
