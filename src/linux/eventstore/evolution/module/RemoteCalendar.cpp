#include "RemoteCalendar.h"

#include <utility>

namespace vantrel {

namespace {

constexpr char factoryService[] = "org.gnome.evolution.dataserver.Calendar8";
constexpr char factoryPath[] = "/org/gnome/evolution/dataserver/CalendarFactory";
constexpr char factoryInterface[] = "org.gnome.evolution.dataserver.CalendarFactory";
constexpr char calendarInterface[] = "org.gnome.evolution.dataserver.Calendar";
constexpr char viewInterface[] = "org.gnome.evolution.dataserver.CalendarView";
constexpr char propertiesInterface[] = "org.freedesktop.DBus.Properties";

/// The first of the answer's values, when it is a text or a path.
QByteArray textIn(GVariant *answer, gsize index = 0) {
    if (!g_variant_is_of_type(answer, G_VARIANT_TYPE_TUPLE) ||
        g_variant_n_children(answer) <= index)
        return {};
    const OwnedVariant value(g_variant_get_child_value(answer, index));
    const bool isText = g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) ||
                        g_variant_is_of_type(value.get(), G_VARIANT_TYPE_OBJECT_PATH);
    return isText ? QByteArray(g_variant_get_string(value.get(), nullptr)) : QByteArray();
}

} // namespace

RemoteCalendar::RemoteCalendar(GDBusConnection *bus, Listener listener)
    : m_bus(anotherReference(bus)), m_listener(std::move(listener)) {}

RemoteCalendar::~RemoteCalendar() {
    if (m_watch != 0)
        g_bus_unwatch_name(m_watch);
    if (m_calendar)
        m_calendar->tell("Close");
}

void RemoteCalendar::open(const QByteArray &source, Opened opened) {
    m_factory =
        std::make_unique<BusObject>(m_bus.get(), factoryService, factoryPath, factoryInterface);
    m_factory->call("OpenCalendar", g_variant_new("(s)", source.constData()),
                    [weak = weak_from_this(), opened = std::move(opened)](GVariant *place,
                                                                          const Failure &failure) {
                        const auto self = weak.lock();
                        if (!self)
                            return;
                        if (failure)
                            return opened(failure);
                        self->follow(place);
                        self->openCalendar(opened);
                    });
}

/// Before it is opened, so that nothing it tells afterwards is missed.
void RemoteCalendar::follow(GVariant *place) {
    m_service = textIn(place, 1);
    m_calendar =
        std::make_unique<BusObject>(m_bus.get(), m_service, textIn(place), calendarInterface);
    m_calendar->listen(calendarInterface,
                       [weak = weak_from_this()](const char *signal, GVariant *arguments) {
                           if (const auto self = weak.lock())
                               self->hearOwn(signal, arguments);
                       });
    m_calendar->listen(propertiesInterface,
                       [weak = weak_from_this()](const char * /*signal*/, GVariant *arguments) {
                           if (const auto self = weak.lock())
                               self->hearProperties(arguments);
                       });
    m_watch = g_bus_watch_name_on_connection(m_bus.get(), m_service.constData(),
                                             G_BUS_NAME_WATCHER_FLAGS_NONE, nullptr,
                                             serviceVanished, this, nullptr);
}

/// Answers with names and values in turn, each value written down in GLib's notation.
void RemoteCalendar::openCalendar(Opened opened) {
    m_calendar->call("Open", nullptr,
                     [weak = weak_from_this(), opened = std::move(opened)](GVariant *answer,
                                                                           const Failure &failure) {
                         const auto self = weak.lock();
                         if (!self)
                             return;
                         if (answer && g_variant_is_of_type(answer, G_VARIANT_TYPE("(as)"))) {
                             const OwnedVariant properties(g_variant_get_child_value(answer, 0));
                             const gsize count = g_variant_n_children(properties.get());
                             for (gsize index = 0; index + 1 < count; index += 2) {
                                 const char *name = nullptr;
                                 const char *text = nullptr;
                                 g_variant_get_child(properties.get(), index, "&s", &name);
                                 g_variant_get_child(properties.get(), index + 1, "&s", &text);
                                 const OwnedVariant value(
                                     g_variant_parse(nullptr, text, nullptr, nullptr, nullptr));
                                 if (value)
                                     self->takeProperty(name, value.get());
                             }
                         }
                         opened(failure);
                     });
}

void RemoteCalendar::hearOwn(const char *signal, GVariant *arguments) const {
    if (QByteArray(signal) == "Error")
        m_listener.complained(textIn(arguments));
}

void RemoteCalendar::hearProperties(GVariant *arguments) const {
    if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(sa{sv}as)")))
        return;
    const OwnedVariant changes(g_variant_get_child_value(arguments, 1));
    GVariantIter iterator;
    g_variant_iter_init(&iterator, changes.get());
    const char *name = nullptr;
    GVariant *value = nullptr;
    while (g_variant_iter_next(&iterator, "{&sv}", &name, &value)) {
        const OwnedVariant owned(value);
        takeProperty(name, value);
    }
}

/// The two ways in which properties come name them differently.
void RemoteCalendar::takeProperty(const QByteArray &name, GVariant *value) const {
    const bool isWritable = name == "Writable" || name == "writable";
    const bool isAddress = name == "CalEmailAddress" || name == "cal-email-address";
    if (isWritable && g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN))
        m_listener.writableTold(g_variant_get_boolean(value) != FALSE);
    else if (isAddress && g_variant_is_of_type(value, G_VARIANT_TYPE_STRING))
        m_listener.addressTold(g_variant_get_string(value, nullptr));
}

void RemoteCalendar::objects(const QByteArray &uid, TakeText take) {
    ask("GetObject", g_variant_new("(ss)", uid.constData(), ""), std::move(take));
}

void RemoteCalendar::timeZone(const QByteArray &name, TakeText take) {
    ask("GetTimezone", g_variant_new("(s)", name.constData()), std::move(take));
}

void RemoteCalendar::makeView(const QByteArray &query, TakeText take) {
    ask("GetView", g_variant_new("(s)", query.constData()), std::move(take));
}

std::unique_ptr<BusObject> RemoteCalendar::view(const QByteArray &path) const {
    return std::make_unique<BusObject>(m_bus.get(), m_service, path, viewInterface);
}

void RemoteCalendar::ask(const char *method, GVariant *arguments, TakeText take) {
    m_calendar->call(method, arguments,
                     [take = std::move(take)](GVariant *answer, const Failure &failure) {
                         take(answer ? textIn(answer) : QByteArray(), failure);
                     });
}

void RemoteCalendar::serviceVanished(GDBusConnection * /*bus*/, const gchar * /*name*/,
                                     gpointer self) {
    const auto calendar = static_cast<RemoteCalendar *>(self)->shared_from_this();
    calendar->m_listener.ended();
}

} // namespace vantrel
