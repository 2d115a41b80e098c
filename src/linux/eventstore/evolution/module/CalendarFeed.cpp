#include "CalendarFeed.h"

#include "CalendarView.h"
#include "SeriesWatch.h"
#include "SourceDescription.h"
#include "ZoneTexts.h"

#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <utility>

namespace vantrel {

CalendarFeed::CalendarFeed(QByteArray source, QString identifier, Surroundings surroundings)
    : m_bus(anotherReference(surroundings.bus)),
      m_source(std::move(source)),
      m_identifier(std::move(identifier)),
      m_surroundings(std::move(surroundings)) {}

CalendarFeed::~CalendarFeed() {
    disconnect();
}

void CalendarFeed::start(Window window) {
    m_window = window;
    queue();
}

void CalendarFeed::setWindow(Window window) {
    if (window == m_window)
        return;
    m_window = window;
    if (!m_view && !m_next)
        return; // The view that is still to be opened takes this window.
    // Were the last one to be filled now, it would give up the place in the line with its slot.
    m_next.reset();
    m_deadline.stop();
    m_ticket = m_surroundings.slots.ask([this] { openView(); });
}

void CalendarFeed::queue() {
    m_ticket = m_surroundings.slots.ask([this] { connect(); });
}

void CalendarFeed::connect() {
    noteProgress();
    AnswerTable &table = m_surroundings.table;
    RemoteCalendar::Listener listener;
    listener.writableTold = [this, &table](bool isWritable) {
        noteIf(table.setWritable(m_identifier, isWritable));
    };
    listener.addressTold = [this, &table](const QByteArray &text) {
        const QString address = plainAddress(text);
        noteIf(table.setAddresses(m_identifier,
                                  address.isEmpty() ? QStringList() : QStringList(address)));
    };
    listener.complained = [this](const QByteArray &message) { noteComplaint(message); };
    listener.ended = [this] { fail("its back end has ended"); };
    m_calendar = std::make_shared<RemoteCalendar>(m_bus.get(), std::move(listener));
    m_zones = std::make_shared<ZoneTexts>(m_calendar, table.title(m_identifier));
    m_calendar->open(m_source, [this](const Failure &failure) {
        if (failure)
            fail("cannot connect: " + failure.message());
        else
            watchSeries();
    });
}

/// First of all, so that no change falls between it and the view.
void CalendarFeed::watchSeries() {
    noteProgress();
    SeriesWatch::Listener listener;
    listener.begun = [this] { openView(); };
    listener.changed = [this](const QByteArray &uid) {
        if (m_view)
            m_view->refresh(uid);
        if (m_next)
            m_next->refresh(uid);
    };
    listener.failed = [this](const QByteArray &message) { fail("cannot be watched: " + message); };
    m_series = std::make_unique<SeriesWatch>(m_calendar, listener);
}

void CalendarFeed::openView() {
    CalendarView::Listener listener;
    listener.progressed = [this] { noteProgress(); };
    listener.filled = [this] { take(); };
    listener.changed = [this](const QByteArray &uid, std::optional<CalendarItem> item) {
        AnswerTable &table = m_surroundings.table;
        noteIf(item ? table.set(m_identifier, uid, std::move(*item))
                    : table.remove(m_identifier, uid));
    };
    listener.failed = [this](const QByteArray &message) { fail("cannot be read: " + message); };
    listener.complained = [this](const QByteArray &message) { noteComplaint(message); };
    m_next = std::make_shared<CalendarView>(m_calendar, m_zones, std::move(listener));
    noteProgress(); // Which counts while there is something to wait for.
    m_next->open(m_window);
}

void CalendarFeed::take() {
    m_deadline.stop();
    m_ticket.reset();
    m_view = std::move(m_next);
    noteIf(m_surroundings.table.replace(m_identifier, m_view->items()));
    noteIf(m_surroundings.table.settle(m_identifier));
    m_steady.startFor(m_surroundings.patience.steady, [this] { m_pause.reset(); });
    if (std::exchange(m_isTrouble, false))
        qCInfo(eventStoreLog).noquote()
            << logText(m_surroundings.table.title(m_identifier)) + QStringLiteral(": is back");
}

void CalendarFeed::noteProgress() {
    if (m_view && !m_next && !m_view->isWaiting())
        return m_deadline.stop(); // At rest there is nothing to be waited for.
    m_deadline.startFor(m_surroundings.patience.signOfLife, [this] { fail("does not answer"); });
}

void CalendarFeed::fail(const QByteArray &reason) {
    const auto keepAlive = shared_from_this();
    if (!std::exchange(m_isTrouble, true))
        qCWarning(eventStoreLog).noquote().nospace()
            << logText(m_surroundings.table.title(m_identifier)) << ": "
            << logText(QString::fromUtf8(reason)) << "; what was read last stays";
    noteIf(m_surroundings.table.settle(m_identifier));
    disconnect();
    m_retry.startFor(m_pause.next(), [this] { queue(); });
}

void CalendarFeed::disconnect() {
    m_deadline.stop();
    m_retry.stop();
    m_steady.stop();
    m_next.reset();
    m_view.reset();
    m_series.reset();
    m_zones.reset();
    m_calendar.reset();
    m_ticket.reset();
}

void CalendarFeed::noteComplaint(const QByteArray &message) {
    if (std::exchange(m_lastComplaint, message) != message)
        qCWarning(eventStoreLog).noquote().nospace()
            << logText(m_surroundings.table.title(m_identifier)) << ": "
            << logText(QString::fromUtf8(message));
}

void CalendarFeed::noteObstacle(const std::optional<QByteArray> &obstacle) {
    if (obstacle && std::exchange(m_obstacle, *obstacle) != *obstacle && !obstacle->isEmpty())
        qCWarning(eventStoreLog).noquote().nospace()
            << logText(m_surroundings.table.title(m_identifier)) << ": "
            << QString::fromUtf8(*obstacle) << "; what was read last stays";
}

void CalendarFeed::noteIf(bool isDifferent) {
    if (isDifferent)
        m_surroundings.noteChange();
}

} // namespace vantrel
