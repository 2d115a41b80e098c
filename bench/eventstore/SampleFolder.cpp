#include "SampleFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <random>

namespace vantrel::bench {

namespace {

constexpr char zoneText[] = "BEGIN:VTIMEZONE\r\n"
                            "TZID:Europe/Zurich\r\n"
                            "BEGIN:DAYLIGHT\r\n"
                            "TZOFFSETFROM:+0100\r\n"
                            "TZOFFSETTO:+0200\r\n"
                            "TZNAME:CEST\r\n"
                            "DTSTART:19700329T020000\r\n"
                            "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\n"
                            "END:DAYLIGHT\r\n"
                            "BEGIN:STANDARD\r\n"
                            "TZOFFSETFROM:+0200\r\n"
                            "TZOFFSETTO:+0100\r\n"
                            "TZNAME:CET\r\n"
                            "DTSTART:19701025T030000\r\n"
                            "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\n"
                            "END:STANDARD\r\n"
                            "END:VTIMEZONE\r\n";

QByteArray timeText(const QDateTime &time) {
    return time.toString(QStringLiteral("yyyyMMdd'T'HHmmss")).toLatin1();
}

} // namespace

QByteArray sampleText(int number, qint64 now) {
    std::minstd_rand random(static_cast<unsigned>(number) + 1);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % unsigned(limit));
    };
    below(2); // The first number of a small seed is hardly random.
    const bool isWeekly = number % 10 == 0;
    const bool hasEnded = isWeekly && number / 10 % 10 < 3;
    const int day = isWeekly ? -30 - below(300) : below(731) - 365;
    const QDateTime start =
        QDateTime::fromSecsSinceEpoch(now, Qt::UTC).addDays(day).addSecs((below(40) - 16) * 900);

    QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Sample//EN\r\n";
    text += zoneText;
    text += "BEGIN:VEVENT\r\nUID:" + QByteArray::number(number) + "-6f1c2b@calendar.example\r\n";
    text += "DTSTAMP:20260101T120000Z\r\nCREATED:20251201T080000Z\r\nSEQUENCE:1\r\n";
    text += "DTSTART;TZID=Europe/Zurich:" + timeText(start) + "\r\n";
    text += "DTEND;TZID=Europe/Zurich:" + timeText(start.addSecs((1 + below(4)) * 1800)) + "\r\n";
    const QDateTime ended = QDateTime::fromSecsSinceEpoch(now, Qt::UTC).addSecs(-31 * 43'200);
    if (isWeekly)
        text += "RRULE:FREQ=WEEKLY" +
                (hasEnded ? ";UNTIL=" + timeText(ended) + 'Z' : QByteArray()) + "\r\n";
    text += "SUMMARY:Planning round " + QByteArray::number(number) + "\r\n";
    text += "LOCATION:Building 2\\, room " + QByteArray::number(below(400)) + "\r\n";
    text += "DESCRIPTION:Agenda and notes are in the shared folder.\\n\\nJoin the meeting: https:/"
            "\r\n /meet.example/j/" +
            QByteArray::number(1'000'000 + number) +
            "?pwd=abcdef\\n\\nPlease "
            "be on time.\r\n";
    for (int attendee = 0; attendee < below(5); ++attendee)
        text += "ATTENDEE;CUTYPE=INDIVIDUAL;ROLE=REQ-PARTICIPANT;PARTSTAT=ACCEPTED;CN=Person " +
                QByteArray::number(attendee) + "\r\n :mailto:person" +
                QByteArray::number(attendee) + "@mail.example\r\n";
    text += "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:Reminder\r\nTRIGGER:-PT10M\r\n"
            "END:VALARM\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
    return text;
}

void writeSampleFolder(const QString &folder, int count, qint64 now) {
    QDir().mkpath(folder);
    for (int number = 0; number < count; ++number) {
        QFile file(
            QStringLiteral("%1/%2-6f1c2b.ics").arg(folder).arg(number, 8, 16, QLatin1Char('0')));
        if (file.open(QIODevice::WriteOnly))
            file.write(sampleText(number, now));
    }
}

QByteArray addedEvent(const QByteArray &number) {
    return "BEGIN:VEVENT\r\nUID:added-" + number +
           "\r\nDTSTART:20260302T150000Z\r\nDURATION:PT30M\r\nSUMMARY:Added\r\nEND:VEVENT\r\n";
}

bool writeSampleFile(const QString &path, int count, qint64 now) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Sample//EN\r\n");
    for (int number = 0; number < count; ++number) {
        const QByteArray text = sampleText(number, now);
        const auto begin = text.indexOf(number == 0 ? "BEGIN:VTIMEZONE" : "BEGIN:VEVENT");
        file.write(text.mid(begin, text.indexOf("END:VCALENDAR") - begin));
    }
    return file.write("END:VCALENDAR\r\n") > 0;
}

} // namespace vantrel::bench
