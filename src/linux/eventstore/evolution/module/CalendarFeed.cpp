#include "CalendarFeed.h"

#include "Async.h"
#include "CalendarView.h"
#include "SeriesWatch.h"
#include "SourceDescription.h"
#include "ZoneTexts.h"

#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <utility>

namespace vantrel {

namespace {

/// A back end that gives no sign of life for so long loses its slot to others.
constexpr Seconds patience{60.0};

/// One that ends again and again is not started every second.
constexpr Seconds steadyTime{60.0};

/// Does not wait for the server: what the service has on its disk is there at once.
constexpr guint32 withoutWaiting = static_cast<guint32>(-1);

} // namespace

CalendarFeed::CalendarFeed(ESource *source, QString identifier, Surroundings surroundings)
    : m_source(anotherReference(source)),
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
    if (!m_client || (!m_view && !m_next))
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
    m_cancellable.reset(g_cancellable_new());
    e_cal_client_connect(m_source.get(), E_CAL_CLIENT_SOURCE_TYPE_EVENTS, withoutWaiting,
                         m_cancellable.get(), Async::ready,
                         Async::data([weak = weak_from_this(), attempt = m_cancellable.get()](
                                         GObject * /*object*/, GAsyncResult *result) {
                             Failure failure;
                             EClient *const client =
                                 e_cal_client_connect_finish(result, failure.out());
                             const Reference<EClient> owned(client);
                             const auto self = weak.lock();
                             if (!self || self->m_cancellable.get() != attempt)
                                 return;
                             if (client)
                                 self->adopt(reinterpret_cast<ECalClient *>(client));
                             else
                                 self->fail("cannot connect: " + failure.message());
                         }));
}

void CalendarFeed::adopt(ECalClient *client) {
    noteProgress();
    m_client = anotherReference(client);
    g_signal_connect(client, "backend-died", G_CALLBACK(backendDied), this);
    g_signal_connect(client, "backend-error", G_CALLBACK(backendFailed), this);
    g_signal_connect(client, "notify::readonly", G_CALLBACK(readOnlyChanged), this);
    m_zones = std::make_shared<ZoneTexts>(client, m_cancellable.get(),
                                          m_surroundings.table.title(m_identifier));
    readOnlyChanged(E_CLIENT(client), nullptr, this);
    askForAddresses();
    watchSeries();
}

void CalendarFeed::askForAddresses() {
    e_client_get_backend_property(
        E_CLIENT(m_client.get()), E_CAL_BACKEND_PROPERTY_CAL_EMAIL_ADDRESS, m_cancellable.get(),
        Async::ready, Async::data([weak = weak_from_this()](GObject *object, GAsyncResult *result) {
            Failure failure;
            gchar *text = nullptr;
            e_client_get_backend_property_finish(E_CLIENT(object), result, &text, failure.out());
            const QString address = plainAddress(takeText(text));
            const auto self = weak.lock();
            if (!self || failure)
                return;
            self->noteIf(self->m_surroundings.table.setAddresses(
                self->m_identifier, address.isEmpty() ? QStringList() : QStringList(address)));
        }));
}

/// First of all, so that no change falls between it and the view.
void CalendarFeed::watchSeries() {
    m_series = std::make_shared<SeriesWatch>(m_client.get(), [this](const QByteArray &uid) {
        if (m_view)
            m_view->refresh(uid);
        if (m_next)
            m_next->refresh(uid);
    });
    m_series->open([this](const QByteArray &message) {
        if (message.isEmpty())
            openView();
        else
            fail("cannot be watched: " + message);
    });
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
    m_next = std::make_shared<CalendarView>(m_client.get(), m_zones, std::move(listener));
    noteProgress(); // Which counts while there is something to wait for.
    m_next->open(m_window);
}

void CalendarFeed::take() {
    m_deadline.stop();
    m_ticket.reset();
    m_view = std::move(m_next);
    noteIf(m_surroundings.table.replace(m_identifier, m_view->items()));
    noteIf(m_surroundings.table.settle(m_identifier));
    m_steady.startFor(steadyTime, [this] { m_pause.reset(); });
    if (std::exchange(m_isTrouble, false))
        qCInfo(eventStoreLog).noquote()
            << logText(m_surroundings.table.title(m_identifier)) + QStringLiteral(": is back");
}

void CalendarFeed::noteProgress() {
    if (m_view && !m_next && !m_deadline.isRunning())
        return; // At rest there is nothing to be waited for.
    m_deadline.startFor(patience, [this] { fail("does not answer"); });
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
    if (m_client)
        g_signal_handlers_disconnect_by_data(m_client.get(), this);
    m_client.reset();
    if (m_cancellable)
        g_cancellable_cancel(m_cancellable.get());
    m_cancellable.reset();
    m_ticket.reset();
}

void CalendarFeed::backendDied(EClient * /*client*/, gpointer self) {
    static_cast<CalendarFeed *>(self)->fail("its back end has ended");
}

void CalendarFeed::backendFailed(EClient * /*client*/, const gchar *message, gpointer self) {
    auto *feed = static_cast<CalendarFeed *>(self);
    if (feed->m_lastBackendError == message)
        return;
    feed->m_lastBackendError = message;
    qCWarning(eventStoreLog).noquote().nospace()
        << logText(feed->m_surroundings.table.title(feed->m_identifier)) << ": "
        << logText(QString::fromUtf8(message));
}

void CalendarFeed::readOnlyChanged(EClient *client, GParamSpec * /*property*/, gpointer self) {
    auto *feed = static_cast<CalendarFeed *>(self);
    feed->noteIf(
        feed->m_surroundings.table.setWritable(feed->m_identifier, !e_client_is_readonly(client)));
}

void CalendarFeed::noteIf(bool isDifferent) {
    if (isDifferent)
        m_surroundings.noteChange();
}

} // namespace vantrel
