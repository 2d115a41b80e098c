#include "AutostartEntry.h"

#include "ExecLine.h"

#include <platform/Log.h>

#include <algorithm>

namespace vantrel {

namespace {

constexpr char group[] = G_KEY_FILE_DESKTOP_GROUP;
constexpr char hidden[] = G_KEY_FILE_DESKTOP_KEY_HIDDEN;
constexpr char onlyShowIn[] = G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN;
constexpr char notShowIn[] = G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN;
/// The switches of the desktops' own settings.
constexpr const char *switches[] = {"X-GNOME-Autostart-enabled", "X-MATE-Autostart-enabled"};

struct FreeMemory {
    void operator()(char *text) const { g_free(text); }
    void operator()(char **list) const { g_strfreev(list); }
};

} // namespace

AutostartEntry::AutostartEntry() : m_file(g_key_file_new()) {}

AutostartEntry::AutostartEntry(const QStringList &command) : AutostartEntry() {
    set(G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    set(G_KEY_FILE_DESKTOP_KEY_VERSION, "1.0");
    set(G_KEY_FILE_DESKTOP_KEY_NAME, "Vantrel");
    set(G_KEY_FILE_DESKTOP_KEY_COMMENT, "Never miss a meeting");
    set(G_KEY_FILE_DESKTOP_KEY_ICON, applicationId);
    set(G_KEY_FILE_DESKTOP_KEY_TERMINAL, "false");
    set(G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY, "false");
    setCommand(command);
}

std::optional<AutostartEntry> AutostartEntry::parse(const QByteArray &text) {
    AutostartEntry entry;
    const auto flags =
        static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    const bool isRead = g_key_file_load_from_data(entry.m_file.get(), text.constData(),
                                                  static_cast<gsize>(text.size()), flags, nullptr);
    if (!isRead || !g_key_file_has_group(entry.m_file.get(), group))
        return std::nullopt;
    return entry;
}

bool AutostartEntry::isSwitchedOff(const QByteArrayList &desktops) const {
    return is(hidden, true) || !isShownIn(desktops) ||
           std::any_of(std::begin(switches), std::end(switches),
                       [this](const char *key) { return is(key, false); });
}

bool AutostartEntry::isShownIn(const QByteArrayList &desktops) const {
    const QByteArrayList only = list(onlyShowIn);
    const QByteArrayList others = list(notShowIn);
    for (const QByteArray &desktop : desktops) {
        if (only.contains(desktop))
            return true;
        if (others.contains(desktop))
            return false;
    }
    return !value(onlyShowIn);
}

bool AutostartEntry::starts(const QString &programName) const {
    if (value(G_KEY_FILE_DESKTOP_KEY_TYPE) != G_KEY_FILE_DESKTOP_TYPE_APPLICATION)
        return false;
    const auto probe = value(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    if (probe && !isProgram(*probe))
        return false;
    return execLineStarts(value(G_KEY_FILE_DESKTOP_KEY_EXEC).value_or(QByteArray()),
                          programName.toUtf8());
}

void AutostartEntry::switchOn(const QByteArrayList &desktops) {
    remove(hidden);
    for (const char *key : switches)
        remove(key);
    if (!isShownIn(desktops)) {
        remove(onlyShowIn);
        remove(notShowIn);
    }
}

void AutostartEntry::switchOff() {
    set(hidden, "true");
}

void AutostartEntry::setCommand(const QStringList &command) {
    set(G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    set(G_KEY_FILE_DESKTOP_KEY_EXEC, execLine(command));
    remove(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
}

QByteArray AutostartEntry::text() const {
    gsize size = 0;
    const std::unique_ptr<char, FreeMemory> text(g_key_file_to_data(m_file.get(), &size, nullptr));
    return {text.get(), static_cast<qsizetype>(size)};
}

std::optional<QByteArray> AutostartEntry::value(const char *key) const {
    const std::unique_ptr<char, FreeMemory> text(
        g_key_file_get_string(m_file.get(), group, key, nullptr));
    return text ? std::optional(QByteArray(text.get())) : std::nullopt;
}

QByteArrayList AutostartEntry::list(const char *key) const {
    const std::unique_ptr<char *, FreeMemory> texts(
        g_key_file_get_string_list(m_file.get(), group, key, nullptr, nullptr));
    QByteArrayList found;
    for (char **text = texts.get(); text && *text; ++text)
        found.append(*text);
    return found;
}

bool AutostartEntry::is(const char *key, bool value) const {
    GError *error = nullptr;
    const bool found = g_key_file_get_boolean(m_file.get(), group, key, &error);
    const bool isMissing = error;
    g_clear_error(&error);
    return !isMissing && found == value;
}

void AutostartEntry::set(const char *key, const QByteArray &value) {
    g_key_file_set_string(m_file.get(), group, key, value.constData());
}

void AutostartEntry::remove(const char *key) {
    g_key_file_remove_key(m_file.get(), group, key, nullptr);
}

} // namespace vantrel
