#pragma once

#include <calendar/CalendarAccess.h>
#include <platform/LocalCalendar.h>
#include <platform/StatusItem.h>
#include <platform/Time.h>

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

namespace vantrel {

/// What a report of a defect needs to know of the agent that runs. It names no meeting and no
/// calendar, so that it can be handed on.
struct AgentStatus {
    QString version;
    QString desktop; ///< As `XDG_CURRENT_DESKTOP` names it; empty where it does not.
    QString session; ///< "xcb", "wayland": the way of drawing that Qt was started with.
    QString shield;  ///< What covers the screens: "x11", "layer-shell", "full-screen".
    StatusItemPlace statusItem = StatusItemPlace::nowhere;
    bool isPaused = false;
    CalendarAccess::Status access = CalendarAccess::Status::notDetermined;
    int calendars = 0;
    int watched = 0;                ///< Of the calendars.
    bool isLoaded = false;          ///< Whether every source has been heard.
    QStringList notes;              ///< What keeps calendars from being listed; a sentence each.
    std::vector<Instant> nextFires; ///< When takeovers are planned to come up, in order.

    /// As the agent hands it on. Its members are a stable interface: see docs/status-verb.md.
    [[nodiscard]] QJsonObject object(const LocalCalendar &calendar) const;
};

/// The status of no agent.
[[nodiscard]] QJsonObject statusOfNone(const QString &version);

/// A status for people, in UTF-8. What the object lacks or has in another form is left out: it may
/// come from an agent of another version.
[[nodiscard]] QByteArray statusText(const QJsonObject &status);

} // namespace vantrel
