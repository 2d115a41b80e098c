#include "Agenda.h"

#include "Output.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

namespace vantrel {

namespace {

QJsonValue orNull(const std::optional<QString> &text) {
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

QJsonValue videoObject(const std::optional<MeetingLink> &link) {
    const MeetingLink::Video *video = link ? link->asVideo() : nullptr;
    if (!video)
        return QJsonValue(QJsonValue::Null);
    return QJsonObject{{QStringLiteral("provider"), rawValue(video->provider)},
                       {QStringLiteral("url"), video->url.absoluteString()}};
}

QJsonValue phoneObject(const std::optional<MeetingLink> &link) {
    const MeetingLink::Phone *phone = link ? link->asPhone() : nullptr;
    if (!phone)
        return QJsonValue(QJsonValue::Null);
    return QJsonObject{{QStringLiteral("rawNumber"), phone->rawNumber}};
}

/// The title of the calendar that holds the event; null for an event that the store no longer has.
QJsonValue calendarTitle(const UpcomingEvent &event, const EventStore &store) {
    const auto stored = store.eventWithIdentifier(event.eventIdentifier());
    if (!stored || !stored->calendar)
        return QJsonValue(QJsonValue::Null);
    return stored->calendar->title;
}

} // namespace

QByteArray Agenda::json(const std::vector<UpcomingEvent> &events, Instant now, Extent extent,
                        const EventStore &store, const LocalCalendar &calendar) {
    QJsonArray array;
    for (const UpcomingEvent &event : events) {
        array.append(QJsonObject{
            {QStringLiteral("id"), event.id},
            {QStringLiteral("title"), event.title},
            {QStringLiteral("start"), isoText(event.startDate, calendar)},
            {QStringLiteral("end"), isoText(event.endDate, calendar)},
            {QStringLiteral("calendar"), calendarTitle(event, store)},
            {QStringLiteral("calendarColor"), colorText(event.calendarColor)},
            {QStringLiteral("isRecurring"), event.isRecurring},
            {QStringLiteral("location"), orNull(event.location)},
            {QStringLiteral("videoLink"), videoObject(event.videoLink)},
            {QStringLiteral("phoneLink"), phoneObject(event.phoneLink)},
            {QStringLiteral("detailPreview"), orNull(event.detailPreview())},
        });
    }
    return jsonOutput({{QStringLiteral("now"), isoText(now, calendar)},
                       {QStringLiteral("isComplete"), extent == Extent::whole},
                       {QStringLiteral("events"), array}});
}

QByteArray Agenda::text(const std::vector<UpcomingEvent> &events, const LocalCalendar &calendar) {
    const QLocale &locale = calendar.locale();
    QString text;
    QDate day;
    for (const UpcomingEvent &event : events) {
        const QDateTime start = calendar.dateTime(event.startDate);
        const QDateTime end = calendar.dateTime(event.endDate);
        if (start.date() != day) {
            text += text.isEmpty() ? QString() : QStringLiteral("\n");
            day = start.date();
            text += locale.toString(day, QLocale::LongFormat) + u'\n';
        }
        text += QStringLiteral("  %1 – %2  %3")
                    .arg(locale.toString(start.time(), QLocale::ShortFormat),
                         locale.toString(end.time(), QLocale::ShortFormat), printable(event.title));
        if (const auto detail = event.detailPreview())
            text += QStringLiteral("  (%1)").arg(printable(*detail));
        text += u'\n';
    }
    return text.toUtf8();
}

} // namespace vantrel
