#include "TwinCalendars.h"

#include "RemoteSources.h"

#include <calendar/UpcomingEventsQuery.h>

#include <QDateTime>

#include <algorithm>
#include <sstream>

namespace vantrel::tests {

namespace {

constexpr Seconds day{86'400.0};
constexpr Seconds fortnight = 14 * day;

std::string textOf(const std::optional<QString> &text) {
    return text ? '"' + text->toStdString() + '"' : "-";
}

std::string brief(Instant start, const QString &title, const char *zone) {
    const auto seconds = static_cast<qint64>(start.time_since_epoch().count());
    const QDateTime local = QDateTime::fromSecsSinceEpoch(seconds, QTimeZone(zone));
    return (local.toString(QStringLiteral("MM-dd HH:mm ")) + title).toStdString();
}

/// All that a meeting says but the one thing that has to differ: its identifier begins with its
/// calendar's, which names a source there and a path here.
std::string describe(const UpcomingEvent &event) {
    std::ostringstream line;
    line << std::fixed << event.startDate.time_since_epoch().count() << " to "
         << event.endDate.time_since_epoch().count() << " title " << textOf(event.title)
         << (event.isRecurring ? " recurring" : " single") << " id "
         << event.id.section(u'/', 1).toStdString() << " colour " << event.calendarColor.red << ' '
         << event.calendarColor.green << ' ' << event.calendarColor.blue << " location "
         << textOf(event.location) << " detail " << textOf(event.detailPreview());
    if (const auto *video = event.videoLink ? event.videoLink->asVideo() : nullptr)
        line << " video " << rawValue(video->provider).toStdString() << ' '
             << video->url.absoluteString().toStdString();
    if (const auto *phone = event.phoneLink ? event.phoneLink->asPhone() : nullptr)
        line << " phone " << phone->rawNumber.toStdString();
    return line.str();
}

std::vector<UpcomingEvent> upcoming(const EventStore &store, const std::vector<QString> &calendars,
                                    Instant now, Seconds horizon) {
    return UpcomingEventsQuery(store).fetchUpcoming({calendars.begin(), calendars.end()}, now,
                                                    horizon);
}

/// Sorted by start and text: which of two meetings that start together comes first hangs on the
/// order of their calendars, which is each store's own.
std::vector<std::string> descriptions(const std::vector<UpcomingEvent> &events) {
    std::vector<std::string> lines;
    for (const UpcomingEvent &event : events)
        lines.push_back(describe(event));
    std::sort(lines.begin(), lines.end());
    return lines;
}

} // namespace

TwinCalendars::TwinCalendars()
    : m_caldav(session.path(QStringLiteral("caldav"))), m_web(session.path(QStringLiteral("www"))) {
    session.writeSource(placeOf(Kind::local),
                        "[Data Source]\nDisplayName=Desk\nEnabled=true\nParent=local-stub\n"
                        "[Calendar]\nBackendName=local\nColor=#112233\n");
    session.writeSource(placeOf(Kind::account), accountSource(m_caldav.port()));
    session.writeSource(placeOf(Kind::subscription), subscriptionSource(m_web.port()));
    m_files.write(QStringLiteral("calendars/local/color"), "#112233");
    m_files.write(QStringLiteral("calendars/account/color"), "#445566");
    m_files.write(QStringLiteral("calendars/subscription/color"), "#665544");
    m_files.write(QStringLiteral("calendars/birthdays/displayname"), "Birthdays");
    m_web.write("holidays.ics", calendarText({}));
}

void TwinCalendars::beginBoth() {
    StoreConfiguration configuration;
    configuration.roots.push_back({m_files.path(QStringLiteral("calendars")), {}, true});
    // An account tells its user's address by itself; for a folder they have to be named.
    configuration.addresses = {QStringLiteral("me@example.com"),
                               QStringLiteral("me@office.example")};
    m_folders = std::make_unique<LocalEventStore>(
        queue, configuration, [this] { return fakes::calendarIn(zone); }, StoreAccess::granted());
    m_folders->start();
    begin();
}

void TwinCalendars::put(Kind kind, const QByteArray &name, const QByteArray &components) {
    writeFile(kind, name, components);
    if (kind == Kind::local)
        EvolutionFixture::put(components, placeOf(kind));
    else if (kind == Kind::account)
        m_caldav.put(name, components);
    else
        m_page[name] = components;
    passOn(kind);
}

void TwinCalendars::remove(Kind kind, const QByteArray &name) {
    ASSERT_TRUE(QFile::remove(m_files.path(fileOf(kind, name))));
    if (kind == Kind::local)
        session.write({QStringLiteral("remove"), placeOf(kind), QString::fromLatin1(name)});
    else if (kind == Kind::birthdays)
        session.write({QStringLiteral("remove-contact"), QString::fromLatin1(name)});
    else if (kind == Kind::account)
        m_caldav.remove(name);
    else
        m_page.erase(name);
    passOn(kind);
}

void TwinCalendars::removeOccurrence(Kind kind, const QByteArray &name,
                                     const QByteArray &recurrenceId, const QByteArray &components) {
    if (kind != Kind::local)
        return put(kind, name, components);
    writeFile(kind, name, components);
    session.write({QStringLiteral("remove"), placeOf(kind), QString::fromLatin1(name),
                   QString::fromLatin1(recurrenceId)});
}

void TwinCalendars::putBirthday(const QByteArray &name, const QByteArray &day,
                                const QByteArray &components) {
    writeFile(Kind::birthdays, name, components);
    session.write({QStringLiteral("put-contact"),
                   session.file("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + name + "\r\nFN:" + name +
                                "\r\nN:;" + name + ";;;\r\nBDAY:" + day + "\r\nEND:VCARD\r\n")});
}

void TwinCalendars::expectMeetings(const char *now, const std::vector<std::string> &expected) {
    const Instant from = fakes::at(now, zone);
    settleBoth(
        [this, from](const EventStore &ofStore) {
            std::vector<std::string> lines;
            for (const auto &one : upcoming(ofStore, identifiers(ofStore), from, fortnight))
                lines.push_back(brief(one.startDate, one.title, zone));
            std::sort(lines.begin(), lines.end());
            return lines;
        },
        expected);
    if (HasFatalFailure())
        return;
    compareAt(from);
    for (const auto &one : upcoming(*store, identifiers(*store), from, fortnight)) {
        for (const double seconds : {-1.0, 0.0, 1.0})
            compareAt(one.startDate + Seconds{seconds});
    }
}

void TwinCalendars::compareAt(Instant now) const {
    for (const Seconds horizon : {day, fortnight})
        EXPECT_EQ(descriptions(upcoming(*store, identifiers(*store), now, horizon)),
                  descriptions(upcoming(*m_folders, identifiers(*m_folders), now, horizon)))
            << "from " << brief(now, QString(), zone) << "on";
}

void TwinCalendars::expectBirthdays(const std::vector<std::string> &expected) {
    settleBoth([this](const EventStore &ofStore) { return birthdays(ofStore); }, expected);
}

/// A folder knows no kinds of calendars, so they are told by the only whole days that come again.
std::vector<std::string> TwinCalendars::birthdays(const EventStore &ofStore) const {
    std::vector<std::string> lines;
    for (const StoreEvent &event : events(ofStore)) {
        if (event.isAllDay && event.hasRecurrenceRules && !event.attendees &&
            event.endDate == event.startDate + day)
            lines.push_back(brief(event.startDate, event.title.value_or(QString()), zone));
    }
    return lines;
}

void TwinCalendars::settleBoth(const Overview &overview, const std::vector<std::string> &expected) {
    if (HasFatalFailure())
        return; // What could not be written would be waited for in vain.
    const QDeadlineTimer deadline(patience);
    while (overview(*store) != expected || overview(*m_folders) != expected) {
        ASSERT_FALSE(deadline.hasExpired())
            << "not in time: " << ::testing::PrintToString(expected)
            << "\naccounts: " << ::testing::PrintToString(overview(*store))
            << "\nfolders: " << ::testing::PrintToString(overview(*m_folders)) << '\n'
            << log.text();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        queue.advance(Seconds{0.01}); // Changes are collected for a moment before they are read.
    }
}

/// The name of the calendar's folder and of its source.
QString TwinCalendars::placeOf(Kind kind) {
    switch (kind) {
    case Kind::local:
        return QStringLiteral("local");
    case Kind::account:
        return QStringLiteral("account");
    case Kind::subscription:
        return QStringLiteral("subscription");
    case Kind::birthdays:
        return QStringLiteral("birthdays");
    }
    Q_UNREACHABLE();
}

QString TwinCalendars::fileOf(Kind kind, const QByteArray &name) {
    return QStringLiteral("calendars/%1/%2.ics").arg(placeOf(kind), QString::fromLatin1(name));
}

void TwinCalendars::writeFile(Kind kind, const QByteArray &name, const QByteArray &components) {
    m_files.write(fileOf(kind, name), calendarText(components));
}

void TwinCalendars::passOn(Kind kind) {
    if (kind == Kind::subscription) {
        QByteArray components;
        for (const auto &[name, item] : m_page)
            components += item;
        m_web.write("holidays.ics", calendarText(components));
    }
    const bool isRemote = kind == Kind::account || kind == Kind::subscription;
    if (store && isRemote)
        session.write({QStringLiteral("refresh"), placeOf(kind)});
}

} // namespace vantrel::tests
