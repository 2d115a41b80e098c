#include "AgentStatus.h"

#include "Output.h"

#include <QJsonArray>

namespace vantrel {

namespace {

QString nameOf(StatusItemPlace place) {
    switch (place) {
    case StatusItemPlace::nowhere:
        return QStringLiteral("none");
    case StatusItemPlace::host:
        return QStringLiteral("host");
    case StatusItemPlace::tray:
        return QStringLiteral("tray");
    }
    Q_UNREACHABLE();
}

QString yesOrNo(bool value) {
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString line(const QString &name, const QString &value) {
    return value.isEmpty()
               ? QString()
               : QStringLiteral("%1 %2\n").arg((name + u':').leftJustified(20), printable(value));
}

QString lineOf(const QJsonObject &status, const QString &name, const QString &member) {
    const QJsonValue value = status[member];
    return line(name, value.isBool()     ? yesOrNo(value.toBool())
                      : value.isDouble() ? QString::number(value.toInt())
                                         : value.toString());
}

} // namespace

QJsonObject AgentStatus::object(const LocalCalendar &calendar) const {
    QJsonArray fires;
    for (const Instant fire : nextFires)
        fires.append(isoText(fire, calendar));
    return {{QStringLiteral("isRunning"), true},
            {QStringLiteral("version"), version},
            {QStringLiteral("desktop"), desktop},
            {QStringLiteral("session"), session},
            {QStringLiteral("shield"), shield},
            {QStringLiteral("statusItem"), nameOf(statusItem)},
            {QStringLiteral("isPaused"), isPaused},
            {QStringLiteral("accessStatus"), rawValue(access)},
            {QStringLiteral("calendars"), calendars},
            {QStringLiteral("watched"), watched},
            {QStringLiteral("isComplete"), isLoaded},
            {QStringLiteral("notes"), QJsonArray::fromStringList(notes)},
            {QStringLiteral("nextFires"), fires}};
}

QJsonObject statusOfNone(const QString &version) {
    return {{QStringLiteral("isRunning"), false}, {QStringLiteral("version"), version}};
}

QByteArray statusText(const QJsonObject &status) {
    QString text =
        lineOf(status, QStringLiteral("Running"), QStringLiteral("isRunning")) +
        lineOf(status, QStringLiteral("Version"), QStringLiteral("version")) +
        lineOf(status, QStringLiteral("Desktop"), QStringLiteral("desktop")) +
        lineOf(status, QStringLiteral("Session"), QStringLiteral("session")) +
        lineOf(status, QStringLiteral("Shield"), QStringLiteral("shield")) +
        lineOf(status, QStringLiteral("Status item"), QStringLiteral("statusItem")) +
        lineOf(status, QStringLiteral("Paused"), QStringLiteral("isPaused")) +
        lineOf(status, QStringLiteral("Calendar access"), QStringLiteral("accessStatus")) +
        lineOf(status, QStringLiteral("Calendars"), QStringLiteral("calendars")) +
        lineOf(status, QStringLiteral("Watched"), QStringLiteral("watched")) +
        lineOf(status, QStringLiteral("All sources heard"), QStringLiteral("isComplete"));
    const QJsonArray fires = status[QStringLiteral("nextFires")].toArray();
    for (const QJsonValue &fire : fires)
        text += line(QStringLiteral("Takeover"), fire.toString());
    const QJsonArray notes = status[QStringLiteral("notes")].toArray();
    for (const QJsonValue &note : notes)
        text += line(QStringLiteral("Note"), note.toString());
    return text.toUtf8();
}

} // namespace vantrel
