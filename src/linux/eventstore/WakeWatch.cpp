#include "WakeWatch.h"

#include <linux/eventstore/evolution/Pace.h>
#include <linux/eventstore/source/StoreLog.h>

#include <QByteArray>

#include <gio/gio.h>

#include <utility>

namespace vantrel {

namespace {

/// A bus that goes away again sooner is not tried again at the first pause.
constexpr Seconds steady{60.0};

} // namespace

struct WakeWatch::Line : std::enable_shared_from_this<Line> {
    Line(MainQueue &ofMain, std::function<void()> given, QByteArray ofBus)
        : queue(ofMain), report(std::move(given)), address(std::move(ofBus)) {}
    Line(const Line &) = delete;
    Line &operator=(const Line &) = delete;
    ~Line() {
        g_cancellable_cancel(cancellable);
        g_object_unref(cancellable);
        hangUp();
    }

    void call();
    void listen(GDBusConnection *opened);
    void hearBack();
    void lose(const char *reason);
    void hangUp();
    void callLater();

    MainQueue &queue;
    const std::function<void()> report;
    const QByteArray address;
    GCancellable *const cancellable = g_cancellable_new();
    GDBusConnection *connection = nullptr;
    guint subscription = 0;
    gulong closing = 0;
    bool isListening = false;
    bool hasListened = false;
    MonotonicInstant since{}; ///< When it began to listen, the last time.
    RetryPause pause;
    ScheduledWork nextCall;
};

void WakeWatch::Line::call() {
    const auto ready = [](GObject *, GAsyncResult *result, gpointer data) {
        const std::unique_ptr<std::weak_ptr<Line>> asked(static_cast<std::weak_ptr<Line> *>(data));
        GError *error = nullptr;
        GDBusConnection *opened = g_dbus_connection_new_for_address_finish(result, &error);
        const auto line = asked->lock();
        if (line && opened)
            line->listen(opened);
        else if (opened)
            g_object_unref(opened);
        else if (line && line->hasListened)
            line->callLater();
        else if (line)
            qCInfo(eventStoreLog,
                   "no system bus (%s): that the machine wakes is known by its clock",
                   error->message);
        g_clear_error(&error);
    };
    g_dbus_connection_new_for_address(
        address.constData(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, cancellable, ready, new std::weak_ptr<Line>(weak_from_this()));
}

void WakeWatch::Line::listen(GDBusConnection *opened) {
    connection = opened;
    // A bus that goes away must not take the program along.
    g_dbus_connection_set_exit_on_close(connection, FALSE);
    const auto closed = [](GDBusConnection *, gboolean, GError *error, gpointer data) {
        static_cast<Line *>(data)->lose(error ? error->message : "closed");
    };
    closing = g_signal_connect(
        connection, "closed",
        G_CALLBACK(static_cast<void (*)(GDBusConnection *, gboolean, GError *, gpointer)>(closed)),
        this);
    const auto take = [](GDBusConnection *, const gchar *, const gchar *, const gchar *,
                         const gchar *, GVariant *parameters, gpointer data) {
        gboolean isGoingToSleep = TRUE;
        if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(b)")))
            g_variant_get(parameters, "(b)", &isGoingToSleep);
        if (!isGoingToSleep)
            static_cast<Line *>(data)->report();
    };
    subscription = g_dbus_connection_signal_subscribe(
        connection, "org.freedesktop.login1", "org.freedesktop.login1.Manager", "PrepareForSleep",
        "/org/freedesktop/login1", nullptr, G_DBUS_SIGNAL_FLAGS_NONE, take, this, nullptr);
    // The bus answers in turn: with this it has also taken note of what is listened to.
    const auto noted = [](GObject *bus, GAsyncResult *result, gpointer data) {
        const std::unique_ptr<std::weak_ptr<Line>> asked(static_cast<std::weak_ptr<Line> *>(data));
        GVariant *answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr);
        if (!answer)
            return;
        g_variant_unref(answer);
        const auto line = asked->lock();
        if (line && reinterpret_cast<GObject *>(line->connection) == bus)
            line->hearBack();
    };
    g_dbus_connection_call(connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus", "GetId", nullptr, nullptr,
                           G_DBUS_CALL_FLAGS_NONE, -1, cancellable, noted,
                           new std::weak_ptr<Line>(weak_from_this()));
}

void WakeWatch::Line::hearBack() {
    if (hasListened)
        qCInfo(eventStoreLog, "the system bus is back");
    isListening = true;
    hasListened = true;
    since = queue.uptime();
}

void WakeWatch::Line::lose(const char *reason) {
    if (isListening)
        qCWarning(eventStoreLog,
                  "the system bus went away (%s): that the machine wakes is known by its clock",
                  reason);
    if (isListening && queue.uptime() - since >= steady)
        pause.reset();
    hangUp();
    if (hasListened)
        callLater();
}

void WakeWatch::Line::hangUp() {
    isListening = false;
    if (!connection)
        return;
    g_signal_handler_disconnect(connection, closing);
    g_dbus_connection_signal_unsubscribe(connection, subscription);
    g_dbus_connection_close(connection, nullptr, nullptr, nullptr);
    g_object_unref(std::exchange(connection, nullptr));
}

void WakeWatch::Line::callLater() {
    nextCall = queue.after(pause.next(), [this] { call(); });
}

WakeWatch::WakeWatch(MainQueue &queue, std::function<void()> report, const QString &busAddress)
    : m_line(std::make_shared<Line>(queue, std::move(report), busAddress.toUtf8())) {
    m_line->call();
}

WakeWatch::~WakeWatch() = default;

QString WakeWatch::systemBus() {
    const QString address = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS");
    return address.isEmpty() ? QStringLiteral("unix:path=/run/dbus/system_bus_socket") : address;
}

bool WakeWatch::isListening() const {
    return m_line->isListening;
}

} // namespace vantrel
