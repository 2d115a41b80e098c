#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QStringList>

#include <glib.h>

#include <memory>
#include <optional>

namespace vantrel {

/// The text of an entry of the autostart folder (Desktop Application Autostart Specification).
/// Keys, comments and translations that it does not know stay.
class AutostartEntry {
public:
    /// One that starts `command`: the program's absolute path and its arguments.
    explicit AutostartEntry(const QStringList &command);

    /// Empty for what is no entry.
    [[nodiscard]] static std::optional<AutostartEntry> parse(const QByteArray &text);

    /// Whether a session of these desktops (XDG_CURRENT_DESKTOP) passes it over.
    [[nodiscard]] bool isSwitchedOff(const QByteArrayList &desktops) const;

    /// Whether the program of that name is what it starts, if need be by way of another one, and
    /// all that it takes is there.
    [[nodiscard]] bool starts(const QString &programName) const;

    void switchOn(const QByteArrayList &desktops);
    void switchOff();
    void setCommand(const QStringList &command);

    [[nodiscard]] QByteArray text() const;

private:
    struct Free {
        void operator()(GKeyFile *file) const { g_key_file_free(file); }
    };

    AutostartEntry();

    [[nodiscard]] std::optional<QByteArray> value(const char *key) const;
    [[nodiscard]] QByteArrayList list(const char *key) const;
    [[nodiscard]] bool is(const char *key, bool value) const;
    [[nodiscard]] bool isShownIn(const QByteArrayList &desktops) const;
    void set(const char *key, const QByteArray &value);
    void remove(const char *key);

    std::unique_ptr<GKeyFile, Free> m_file;
};

} // namespace vantrel
