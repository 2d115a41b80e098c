#pragma once

#include <QByteArray>

#include <gio/gio.h>

#include <map>
#include <set>
#include <string>

namespace vantrel::tests {

/// A calendar factory on a bus of the test's own, each of whose calendars has one event, from
/// today on each day.
/// Everything happens while the default main context is iterated.
class StandInFactory {
public:
    /// What a calendar does not do any more.
    enum class Stall { nowhere, opening, watching, listing, fetching };

    StandInFactory();
    ~StandInFactory();
    StandInFactory(const StandInFactory &) = delete;
    StandInFactory &operator=(const StandInFactory &) = delete;

    void setStall(const QByteArray &source, Stall stall) { m_stalls[source] = stall; }
    /// Every further question for a component gets that error; none for null.
    void setFetchError(const char *error) { m_fetchError = error; }
    /// Announces the calendar's event as changed.
    void touch(const QByteArray &source);
    void setAddress(const QByteArray &source, const QByteArray &address);

    /// How often a calendar was asked for.
    [[nodiscard]] int openings(const QByteArray &source) { return m_openings[source]; }

    /// A connection to its bus, for whoever is tested.
    [[nodiscard]] GDBusConnection *client() const { return m_client; }

private:
    static void called(GDBusConnection *bus, const gchar *sender, const gchar *path,
                       const gchar *interface, const gchar *method, GVariant *arguments,
                       GDBusMethodInvocation *invocation, gpointer self);

    void answer(const QByteArray &path, const QByteArray &method, GVariant *arguments,
                GDBusMethodInvocation *invocation);
    void add(const QByteArray &path, const char *interface);
    void emitView(const QByteArray &path, const QByteArray &source);
    void emitEvent(const QByteArray &path, const char *signal, const QByteArray &source);

    GTestDBus *m_daemon;
    GDBusConnection *m_server = nullptr;
    GDBusConnection *m_client = nullptr;
    GDBusNodeInfo *m_description = nullptr;
    std::set<QByteArray> m_paths;
    std::map<QByteArray, Stall> m_stalls;
    std::map<QByteArray, int> m_openings;
    const char *m_fetchError = nullptr;
};

} // namespace vantrel::tests
