#include <app/Agenda.h>
#include <fakes/FakeEventStore.h>
#include <fakes/Times.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

class AgendaTest : public testing::Test {
protected:
    const Instant now = at("2026-03-27T09:00:00");
    fakes::FakeEventStore store{[this] { return now; }};

    static UpcomingEvent event(const char *id, const char16_t *title, const char *start) {
        UpcomingEvent event;
        event.id = QString::fromLatin1(id);
        event.title = QString::fromUtf16(title);
        event.startDate = at(start);
        event.endDate = event.startDate + Seconds{1800};
        event.calendarColor = {232 / 255.0, 160 / 255.0, 76 / 255.0, 1.0};
        return event;
    }

    QJsonObject json(const std::vector<UpcomingEvent> &events, const char *zone) {
        const QByteArray bytes =
            Agenda::json(events, now, Agenda::Extent::whole, store, calendarIn(zone));
        EXPECT_TRUE(bytes.endsWith('\n'));
        return QJsonDocument::fromJson(bytes).object();
    }
};

TEST_F(AgendaTest, GivesEveryMemberOfAnEvent) {
    auto calendar = std::make_shared<StoreCalendar>();
    calendar->title = QStringLiteral("Work");
    StoreEvent stored;
    stored.eventIdentifier = QStringLiteral("a");
    stored.startDate = now;
    stored.endDate = now + Seconds{1800};
    stored.calendar = calendar;
    store.storedEvents = {stored};

    UpcomingEvent full = event("a|1", u"Stand-up", "2026-03-27T10:00:00");
    full.isRecurring = true;
    full.location = QStringLiteral("Room 1");
    full.videoLink = MeetingLink::video(MeetingLink::VideoProvider::zoom,
                                        *Url::fromString(QStringLiteral("https://zoom.us/j/1")));
    full.phoneLink = MeetingLink::phone(QStringLiteral("+41 44 668 18 00"));
    const QJsonObject object = json({full}, "Europe/Zurich");

    EXPECT_EQ(object[u"now"].toString(), QStringLiteral("2026-03-27T10:00:00+01:00"));
    const QJsonObject expected{
        {QStringLiteral("id"), QStringLiteral("a|1")},
        {QStringLiteral("title"), QStringLiteral("Stand-up")},
        {QStringLiteral("start"), QStringLiteral("2026-03-27T11:00:00+01:00")},
        {QStringLiteral("end"), QStringLiteral("2026-03-27T11:30:00+01:00")},
        {QStringLiteral("calendar"), QStringLiteral("Work")},
        {QStringLiteral("calendarColor"), QStringLiteral("#e8a04c")},
        {QStringLiteral("isRecurring"), true},
        {QStringLiteral("location"), QStringLiteral("Room 1")},
        {QStringLiteral("videoLink"),
         QJsonObject{{QStringLiteral("provider"), QStringLiteral("zoom")},
                     {QStringLiteral("url"), QStringLiteral("https://zoom.us/j/1")}}},
        {QStringLiteral("phoneLink"),
         QJsonObject{{QStringLiteral("rawNumber"), QStringLiteral("+41 44 668 18 00")}}},
        {QStringLiteral("detailPreview"), QStringLiteral("https://zoom.us/j/1")},
    };
    EXPECT_EQ(object[u"events"].toArray(), QJsonArray{expected});
}

TEST_F(AgendaTest, GivesNullForWhatAnEventLacks) {
    const QJsonObject bare =
        json({event("a|1", u"Bare", "2026-03-27T10:00:00")}, "UTC")[u"events"][0].toObject();
    for (const char *member : {"calendar", "location", "videoLink", "phoneLink", "detailPreview"}) {
        ASSERT_TRUE(bare.contains(QLatin1String(member))) << member;
        EXPECT_TRUE(bare[QLatin1String(member)].isNull()) << member;
    }
    EXPECT_EQ(bare[u"isRecurring"], false);
}

TEST_F(AgendaTest, WritesTheOffsetOfEachMoment) {
    const std::vector events{event("a|1", u"", "2026-03-28T12:00:00"),
                             event("b|1", u"", "2026-03-29T12:00:00")};
    EXPECT_EQ(json(events, "UTC")[u"events"][0][u"start"].toString(),
              QStringLiteral("2026-03-28T12:00:00+00:00"));
    EXPECT_EQ(json(events, "Europe/Zurich")[u"events"][0][u"start"].toString(),
              QStringLiteral("2026-03-28T13:00:00+01:00"));
    EXPECT_EQ(json(events, "Europe/Zurich")[u"events"][1][u"start"].toString(),
              QStringLiteral("2026-03-29T14:00:00+02:00"));
    EXPECT_EQ(json(events, "America/St_Johns")[u"events"][0][u"start"].toString(),
              QStringLiteral("2026-03-28T09:30:00-02:30"));
}

TEST_F(AgendaTest, GivesAnEmptyListWhenNothingComes) {
    const QJsonObject object = json({}, "UTC");
    EXPECT_TRUE(object[u"events"].isArray());
    EXPECT_TRUE(object[u"events"].toArray().isEmpty());
    EXPECT_EQ(Agenda::text({}, calendarIn()), QByteArray());
}

TEST_F(AgendaTest, TellsWhetherItIsComplete) {
    EXPECT_EQ(json({}, "UTC")[u"isComplete"], QJsonValue(true));
    const QByteArray partial =
        Agenda::json({}, now, Agenda::Extent::partial, store, calendarIn("UTC"));
    EXPECT_EQ(QJsonDocument::fromJson(partial).object()[u"isComplete"], QJsonValue(false));
}

TEST_F(AgendaTest, GroupsTextByDay) {
    UpcomingEvent located = event("b|1", u"Review", "2026-03-28T10:00:00");
    located.location = QStringLiteral("Room 1");
    const QByteArray text = Agenda::text({event("a|1", u"Stand-up", "2026-03-28T09:00:00"), located,
                                          event("c|1", u"Dentist", "2026-03-29T09:00:00")},
                                         LocalCalendar(QTimeZone("UTC"), QLocale(QLocale::German)));
    EXPECT_EQ(text, QStringLiteral("Samstag, 28. März 2026\n"
                                   "  09:00 – 09:30  Stand-up\n"
                                   "  10:00 – 10:30  Review  (Room 1)\n"
                                   "\n"
                                   "Sonntag, 29. März 2026\n"
                                   "  09:00 – 09:30  Dentist\n")
                        .toUtf8());
}

TEST_F(AgendaTest, KeepsATitleFromDrivingATerminal) {
    const QByteArray text = Agenda::text(
        {event("a|1", u"\u001b[2Jred\nline\u202etxt\u009b", "2026-03-28T09:00:00")}, calendarIn());
    EXPECT_EQ(text.count('\n'), 2);
    EXPECT_FALSE(text.contains('\x1b'));
    EXPECT_FALSE(QString::fromUtf8(text).contains(QChar(0x202e)));
    EXPECT_FALSE(QString::fromUtf8(text).contains(QChar(0x9b)));
}

TEST_F(AgendaTest, LeavesAnEmojiOfSeveralPartsWhole) {
    const QString family = QString::fromUtf16(u"👨‍👩‍👧");
    const QByteArray text =
        Agenda::text({event("a|1", u"👨‍👩‍👧", "2026-03-28T09:00:00")}, calendarIn());
    EXPECT_TRUE(QString::fromUtf8(text).contains(family));
}

} // namespace
} // namespace vantrel
