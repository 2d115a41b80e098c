#pragma once

#include <QByteArray>

namespace vantrel::tests {

/// What the registry is told of a calendar on a server on loopback: no password, and the service
/// looks at the server once a minute by itself.
inline QByteArray remoteSource(quint16 port, const QByteArray &path) {
    return "[Authentication]\nHost=127.0.0.1\nPort=" + QByteArray::number(port) +
           "\nMethod=none\nProxyUid=system-proxy\n"
           "[Security]\nMethod=none\n"
           "[WebDAV Backend]\nResourcePath=" +
           path +
           "\nEmailAddress=Me@Office.Example\n"
           "[Offline]\nStaySynchronized=true\n[Refresh]\nEnabled=true\nIntervalMinutes=1\n";
}

/// A calendar of the CalDAV server's, in an account whose user is me@office.example.
inline QByteArray accountSource(quint16 port, const QByteArray &calendarName = "work") {
    return "[Data Source]\nDisplayName=Office\nEnabled=true\nParent=caldav-stub\n"
           "[Calendar]\nBackendName=caldav\nColor=#445566\n" +
           remoteSource(port, "/me/" + calendarName + "/");
}

/// The web server's holidays.ics.
inline QByteArray subscriptionSource(quint16 port) {
    return "[Data Source]\nDisplayName=Holidays\nEnabled=true\nParent=webcal-stub\n"
           "[Calendar]\nBackendName=webcal\nColor=#665544\n" +
           remoteSource(port, "/holidays.ics");
}

} // namespace vantrel::tests
