#include "WakeWatch.h"

#include <linux/eventstore/source/StoreLog.h>

#include <gio/gio.h>

#include <utility>

namespace vantrel {

struct WakeWatch::Line {
    explicit Line(std::function<void()> given) : report(std::move(given)) {}
    Line(const Line &) = delete;
    Line &operator=(const Line &) = delete;
    ~Line() {
        g_cancellable_cancel(cancellable);
        g_object_unref(cancellable);
        if (!connection)
            return;
        g_dbus_connection_signal_unsubscribe(connection, subscription);
        g_dbus_connection_close(connection, nullptr, nullptr, nullptr);
        g_object_unref(connection);
    }

    void listen(GDBusConnection *opened, const std::shared_ptr<Line> &self);

    const std::function<void()> report;
    GCancellable *const cancellable = g_cancellable_new();
    GDBusConnection *connection = nullptr;
    guint subscription = 0;
    bool isListening = false;
};

void WakeWatch::Line::listen(GDBusConnection *opened, const std::shared_ptr<Line> &self) {
    connection = opened;
    // A bus that goes away must not take the program along.
    g_dbus_connection_set_exit_on_close(connection, FALSE);
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
        if (const auto line = asked->lock())
            line->isListening = answer;
        if (answer)
            g_variant_unref(answer);
    };
    g_dbus_connection_call(connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus", "GetId", nullptr, nullptr,
                           G_DBUS_CALL_FLAGS_NONE, -1, cancellable, noted,
                           new std::weak_ptr<Line>(self));
}

WakeWatch::WakeWatch(std::function<void()> report, const QString &busAddress)
    : m_line(std::make_shared<Line>(std::move(report))) {
    const auto ready = [](GObject *, GAsyncResult *result, gpointer data) {
        const std::unique_ptr<std::weak_ptr<Line>> asked(static_cast<std::weak_ptr<Line> *>(data));
        GError *error = nullptr;
        GDBusConnection *opened = g_dbus_connection_new_for_address_finish(result, &error);
        const auto line = asked->lock();
        if (line && opened)
            line->listen(opened, line);
        else if (opened)
            g_object_unref(opened);
        if (line && error)
            qCInfo(eventStoreLog,
                   "no system bus (%s): that the machine wakes is known by its clock",
                   error->message);
        g_clear_error(&error);
    };
    g_dbus_connection_new_for_address(
        busAddress.toUtf8().constData(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, m_line->cancellable, ready, new std::weak_ptr<Line>(m_line));
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
