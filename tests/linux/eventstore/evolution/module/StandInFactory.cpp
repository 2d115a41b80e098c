#include "StandInFactory.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

namespace vantrel::tests {

namespace {

constexpr char service[] = "org.gnome.evolution.dataserver.Calendar8";
constexpr char factoryPath[] = "/org/gnome/evolution/dataserver/CalendarFactory";
constexpr char factoryInterface[] = "org.gnome.evolution.dataserver.CalendarFactory";
constexpr char calendarInterface[] = "org.gnome.evolution.dataserver.Calendar";
constexpr char viewInterface[] = "org.gnome.evolution.dataserver.CalendarView";
constexpr char description[] = R"(<node>
  <interface name="org.gnome.evolution.dataserver.CalendarFactory">
    <method name="OpenCalendar">
      <arg type="s" direction="in"/><arg type="s" direction="out"/><arg type="s" direction="out"/>
    </method>
  </interface>
  <interface name="org.gnome.evolution.dataserver.Calendar">
    <method name="Open"><arg type="as" direction="out"/></method>
    <method name="Close"/>
    <method name="GetView">
      <arg type="s" direction="in"/><arg type="o" direction="out"/>
    </method>
    <method name="GetObject">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="out"/>
    </method>
  </interface>
  <interface name="org.gnome.evolution.dataserver.CalendarView">
    <method name="Start"/>
    <method name="SetFlags"><arg type="u" direction="in"/></method>
    <method name="Dispose"/>
  </interface>
</node>)";

/// Of a source's calendar, below which its views lie.
const QByteArray calendars = "/calendars/";

QByteArray eventOf(const QByteArray &source) {
    return "BEGIN:VEVENT\r\nUID:" + source +
           "\r\nDTSTART:20260302T110000Z\r\nRRULE:FREQ=DAILY\r\nSUMMARY:Today\r\nEND:VEVENT\r\n";
}

GDBusConnection *connectionTo(const gchar *address) {
    GError *error = nullptr;
    GDBusConnection *connection = g_dbus_connection_new_for_address_sync(
        address,
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, &error);
    EXPECT_TRUE(connection) << error->message;
    return connection;
}

} // namespace

StandInFactory::StandInFactory() : m_daemon(g_test_dbus_new(G_TEST_DBUS_NONE)) {
    g_test_dbus_up(m_daemon);
    m_server = connectionTo(g_test_dbus_get_bus_address(m_daemon));
    m_client = connectionTo(g_test_dbus_get_bus_address(m_daemon));
    m_description = g_dbus_node_info_new_for_xml(description, nullptr);
    add(factoryPath, factoryInterface);
    GVariant *owned = g_dbus_connection_call_sync(
        m_server, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "RequestName", g_variant_new("(su)", service, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
        nullptr, nullptr);
    EXPECT_TRUE(owned);
    g_variant_unref(owned);
}

StandInFactory::~StandInFactory() {
    g_object_unref(m_client);
    g_object_unref(m_server);
    g_dbus_node_info_unref(m_description);
    g_test_dbus_stop(m_daemon);
    g_object_unref(m_daemon);
}

void StandInFactory::setAddress(const QByteArray &source, const QByteArray &address) {
    GVariantBuilder changes;
    g_variant_builder_init(&changes, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&changes, "{sv}", "CalEmailAddress",
                          g_variant_new_string(address.constData()));
    g_dbus_connection_emit_signal(m_server, nullptr, (calendars + source).constData(),
                                  "org.freedesktop.DBus.Properties", "PropertiesChanged",
                                  g_variant_new("(sa{sv}as)", calendarInterface, &changes, nullptr),
                                  nullptr);
}

void StandInFactory::add(const QByteArray &path, const char *interface) {
    static const GDBusInterfaceVTable table{called, nullptr, nullptr, {}};
    if (!m_paths.insert(path).second)
        return;
    const guint registration = g_dbus_connection_register_object(
        m_server, path.constData(), g_dbus_node_info_lookup_interface(m_description, interface),
        &table, this, nullptr, nullptr);
    EXPECT_GT(registration, 0U);
}

void StandInFactory::called(GDBusConnection * /*bus*/, const gchar * /*sender*/, const gchar *path,
                            const gchar * /*interface*/, const gchar *method, GVariant *arguments,
                            GDBusMethodInvocation *invocation, gpointer self) {
    static_cast<StandInFactory *>(self)->answer(path, method, arguments, invocation);
}

void StandInFactory::answer(const QByteArray &path, const QByteArray &method, GVariant *arguments,
                            GDBusMethodInvocation *invocation) {
    if (method == "OpenCalendar") {
        const char *source = nullptr;
        g_variant_get(arguments, "(&s)", &source);
        ++m_openings[source];
        add(calendars + source, calendarInterface);
        return g_dbus_method_invocation_return_value(
            invocation, g_variant_new("(ss)", (calendars + source).constData(), service));
    }
    const QByteArray source = path.mid(calendars.size()).split('/').first();
    const Stall stall = m_stalls[source];
    if (method == "Open" && stall != Stall::opening) {
        const char *const properties[] = {"cal-email-address", "'Me@Office.Example'", nullptr};
        return g_dbus_method_invocation_return_value(invocation,
                                                     g_variant_new("(^as)", properties));
    }
    if (method == "GetView" && stall != Stall::watching) {
        const char *query = nullptr;
        g_variant_get(arguments, "(&s)", &query);
        const QByteArray view =
            path + (QByteArray(query).contains("recurrences") ? "/series" : "/window");
        add(view, viewInterface);
        return g_dbus_method_invocation_return_value(invocation,
                                                     g_variant_new("(o)", view.constData()));
    }
    if (method == "GetObject" && m_fetchError)
        return g_dbus_method_invocation_return_dbus_error(invocation, m_fetchError, "it failed");
    if (method == "GetObject" && stall != Stall::fetching) {
        return g_dbus_method_invocation_return_value(
            invocation, g_variant_new("(s)", eventOf(source).constData()));
    }
    if (method != "Open" && method != "GetView" && method != "GetObject")
        g_dbus_method_invocation_return_value(invocation, nullptr);
    else
        g_object_unref(invocation); // It is never answered.
    if (method == "Start" && path.endsWith("/window") && stall != Stall::listing)
        emitView(path, source);
}

void StandInFactory::emitView(const QByteArray &path, const QByteArray &source) {
    emitEvent(path, "ObjectsAdded", source);
    g_dbus_connection_emit_signal(m_server, nullptr, path.constData(), viewInterface, "Complete",
                                  g_variant_new("(ss)", "", ""), nullptr);
}

void StandInFactory::touch(const QByteArray &source) {
    emitEvent(calendars + source + "/window", "ObjectsModified", source);
}

void StandInFactory::emitEvent(const QByteArray &path, const char *signal,
                               const QByteArray &source) {
    const QByteArray event = eventOf(source);
    const char *const events[] = {event.constData(), nullptr};
    g_dbus_connection_emit_signal(m_server, nullptr, path.constData(), viewInterface, signal,
                                  g_variant_new("(^as)", events), nullptr);
}

} // namespace vantrel::tests
