#include "DesktopClock.h"

#include <QByteArrayList>

#include <gio/gio.h>

namespace vantrel {

namespace {

constexpr char schemaId[] = "org.gnome.desktop.interface";
constexpr char key[] = "clock-format";

/// Elsewhere the schema may be installed too, for programs that come from there; what it says then
/// is nothing that the user sees.
bool isOnDesktopOfSetting() {
    return qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("GNOME");
}

/// Asking for a setting that there is not ends the program.
bool isSettingInstalled() {
    GSettingsSchemaSource *source = g_settings_schema_source_get_default();
    GSettingsSchema *schema =
        source ? g_settings_schema_source_lookup(source, schemaId, true) : nullptr;
    if (!schema)
        return false;
    const bool hasKey = g_settings_schema_has_key(schema, key);
    g_settings_schema_unref(schema);
    return hasKey;
}

} // namespace

void DesktopClock::Unref::operator()(GSettings *settings) const {
    g_object_unref(settings);
}

DesktopClock::DesktopClock() {
    if (isOnDesktopOfSetting() && isSettingInstalled())
        m_settings.reset(g_settings_new(schemaId));
}

ClockFormat DesktopClock::format() const {
    if (!m_settings)
        return ClockFormat::ofLocale;
    const std::unique_ptr<gchar, decltype(&g_free)> set(
        g_settings_get_string(m_settings.get(), key), g_free);
    const QByteArrayView value(set.get());
    return value == "12h"   ? ClockFormat::twelveHours
           : value == "24h" ? ClockFormat::twentyFourHours
                            : ClockFormat::ofLocale;
}

} // namespace vantrel
