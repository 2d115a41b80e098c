#include "SampleEvents.h"

#include <calendar/UpcomingEventsAdapter.h>

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

namespace vantrel {
namespace {

using samples::guest;
using samples::user;
using Status = StoreParticipantStatus;

UpcomingEvent made(const StoreEvent &event) {
    return UpcomingEventsAdapter::makeEvent(event).value();
}

bool isShown(const StoreEvent &event) {
    return UpcomingEventsAdapter::makeEvent(event).has_value();
}

QString idOfStart(Seconds sinceReferenceDate) {
    StoreEvent event = samples::event();
    event.startDate = referenceDate + sinceReferenceDate;
    event.endDate = event.startDate;
    return made(event).id;
}

TEST(UpcomingEventsAdapter, CarriesEveryField) {
    StoreEvent event = samples::event();
    event.hasRecurrenceRules = true;
    event.location = QStringLiteral("  Room 4\n");
    event.notes = QStringLiteral("Join https://us02web.zoom.us/j/81234567890?pwd=abc or call "
                                 "+41 44 668 18 00");
    const UpcomingEvent upcoming = made(event);
    EXPECT_EQ(upcoming.id, QStringLiteral("work/planning|794134800"));
    EXPECT_EQ(upcoming.title, QStringLiteral("Planning"));
    EXPECT_EQ(upcoming.startDate, fakes::at("2026-03-02T09:00:00"));
    EXPECT_EQ(upcoming.endDate, fakes::at("2026-03-02T09:30:00"));
    EXPECT_EQ(upcoming.calendarColor, (Color{0.1, 0.2, 0.3, 1.0}));
    EXPECT_TRUE(upcoming.isRecurring);
    EXPECT_EQ(upcoming.location, QStringLiteral("Room 4"));
    ASSERT_TRUE(upcoming.videoLink && upcoming.videoLink->asVideo());
    EXPECT_EQ(upcoming.videoLink->asVideo()->provider, MeetingLink::VideoProvider::zoom);
    EXPECT_EQ(upcoming.videoLink->asVideo()->url.absoluteString(),
              QString::fromUtf16(samples::zoomLink));
    ASSERT_TRUE(upcoming.phoneLink && upcoming.phoneLink->asPhone());
    EXPECT_EQ(upcoming.phoneLink->asPhone()->rawNumber, QString::fromUtf16(samples::phoneNumber));
}

TEST(UpcomingEventsAdapter, LooksForTheVideoLinkInTheUrlFirst) {
    StoreEvent event = samples::event();
    event.url = Url::fromString(QStringLiteral("https://meet.google.com/abc-defg-hij"));
    event.notes = QString::fromUtf16(samples::zoomLink);
    EXPECT_EQ(made(event).videoLink->asVideo()->provider, MeetingLink::VideoProvider::googleMeet);
}

TEST(UpcomingEventsAdapter, FillsInWhatAnEventMayLack) {
    StoreEvent event;
    event.startDate = event.endDate = fakes::at("2026-03-02T09:00:00");
    const UpcomingEvent upcoming = made(event);
    EXPECT_EQ(upcoming.title, QStringLiteral("(no title)"));
    EXPECT_EQ(upcoming.calendarColor, (Color{0.5, 0.5, 0.5, 1.0}));
    EXPECT_FALSE(upcoming.isRecurring);
    EXPECT_EQ(upcoming.location, std::nullopt);
    EXPECT_EQ(upcoming.videoLink, std::nullopt);
    EXPECT_EQ(upcoming.phoneLink, std::nullopt);
    EXPECT_EQ(upcoming.detailPreview(), std::nullopt);
}

TEST(UpcomingEventsAdapter, KeepsAnEmptyTitleEmpty) {
    StoreEvent event = samples::event();
    event.title = QStringLiteral("");
    EXPECT_EQ(made(event).title, QString());
}

TEST(UpcomingEventsAdapter, PaintsAnEventOfAColourlessCalendarGrey) {
    StoreEvent event = samples::event();
    StoreCalendar colourless = samples::calendar(QStringLiteral("work"));
    colourless.color.reset();
    event.calendar = std::make_shared<StoreCalendar>(colourless);
    EXPECT_EQ(made(event).calendarColor, (Color{0.5, 0.5, 0.5, 1.0}));
}

TEST(UpcomingEventsAdapter, HasNoLocationOfSpacesAndLineBreaks) {
    StoreEvent event = samples::event();
    event.location = QStringLiteral(" \t\r\n\u00a0\u2028 ");
    EXPECT_EQ(made(event).location, std::nullopt);
    EXPECT_EQ(made(event).detailPreview(), std::nullopt);
    event.notes = QString::fromUtf16(samples::phoneNumber);
    EXPECT_EQ(made(event).detailPreview(), QString::fromUtf16(samples::phoneNumber));
}

TEST(UpcomingEventsAdapter, TrimsALocationAtItsEndsOnly) {
    StoreEvent event = samples::event();
    event.location = QStringLiteral("\n Main street 1\n4th  floor \r\n");
    EXPECT_EQ(made(event).location, QStringLiteral("Main street 1\n4th  floor"));
}

TEST(UpcomingEventsAdapter, LeavesOutAllDayEvents) {
    StoreEvent event = samples::event();
    event.isAllDay = true;
    EXPECT_FALSE(isShown(event));
}

struct EventStatusCase {
    StoreEventStatus status;
    bool isShown;
};

void PrintTo(const EventStatusCase &row, std::ostream *out) {
    constexpr const char *names[] = {"none", "confirmed", "tentative", "cancelled"};
    *out << names[static_cast<int>(row.status)];
}

class EventStatusTest : public testing::TestWithParam<EventStatusCase> {};

TEST_P(EventStatusTest, LeavesOutCancelledEventsOnly) {
    StoreEvent event = samples::event();
    event.status = GetParam().status;
    EXPECT_EQ(isShown(event), GetParam().isShown);
}

INSTANTIATE_TEST_SUITE_P(AllStatuses, EventStatusTest,
                         testing::Values(EventStatusCase{StoreEventStatus::none, true},
                                         EventStatusCase{StoreEventStatus::confirmed, true},
                                         EventStatusCase{StoreEventStatus::tentative, true},
                                         EventStatusCase{StoreEventStatus::cancelled, false}));

struct ParticipantCase {
    Status status;
    bool isShown;
};

void PrintTo(const ParticipantCase &row, std::ostream *out) {
    constexpr const char *names[] = {"unknown",   "pending",   "accepted",  "declined",
                                     "tentative", "delegated", "completed", "inProcess"};
    *out << names[static_cast<int>(row.status)];
}

class ParticipantStatusTest : public testing::TestWithParam<ParticipantCase> {};

TEST_P(ParticipantStatusTest, LeavesOutWhatTheUserDeclinedOnly) {
    StoreEvent event = samples::event();
    event.attendees = samples::attendees({guest(Status::accepted), user(GetParam().status)});
    EXPECT_EQ(isShown(event), GetParam().isShown);
}

INSTANTIATE_TEST_SUITE_P(AllStatuses, ParticipantStatusTest,
                         testing::Values(ParticipantCase{Status::unknown, true},
                                         ParticipantCase{Status::pending, true},
                                         ParticipantCase{Status::accepted, true},
                                         ParticipantCase{Status::declined, false},
                                         ParticipantCase{Status::tentative, true},
                                         ParticipantCase{Status::delegated, true},
                                         ParticipantCase{Status::completed, true},
                                         ParticipantCase{Status::inProcess, true}));

TEST(UpcomingEventsAdapter, GoesByTheFirstEntryOfTheUser) {
    StoreEvent event = samples::event();
    event.attendees = samples::attendees({user(Status::accepted), user(Status::declined)});
    EXPECT_TRUE(isShown(event));
    event.attendees = samples::attendees({user(Status::declined), user(Status::accepted)});
    EXPECT_FALSE(isShown(event));
}

TEST(UpcomingEventsAdapter, DoesNotCareWhatOthersDeclined) {
    StoreEvent event = samples::event();
    event.attendees = samples::attendees({guest(Status::declined), guest(Status::declined)});
    EXPECT_TRUE(isShown(event));
    event.attendees = samples::attendees({});
    EXPECT_TRUE(isShown(event));
}

TEST(UpcomingEventsAdapter, GivesEachOccurrenceOfASeriesAnIdOfItsOwn) {
    const QString monday = made(samples::event("2026-03-02T09:00:00")).id;
    const QString tuesday = made(samples::event("2026-03-03T09:00:00")).id;
    EXPECT_NE(monday, tuesday);
    EXPECT_EQ(monday.section(u'|', 0, 0), tuesday.section(u'|', 0, 0));
    EXPECT_EQ(monday.count(u'|'), 1);
}

struct KeyCase {
    double seconds;
    const char *text;
};

void PrintTo(const KeyCase &row, std::ostream *out) {
    *out << row.seconds;
}

class OccurrenceKeyTest : public testing::TestWithParam<KeyCase> {};

TEST_P(OccurrenceKeyTest, EndsInTheWholeSecondsTruncatedTowardZero) {
    EXPECT_EQ(idOfStart(Seconds{GetParam().seconds}),
              QStringLiteral("work/planning|") + QLatin1String(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Instants, OccurrenceKeyTest,
    testing::Values(KeyCase{0.0, "0"}, KeyCase{0.999, "0"}, KeyCase{-0.999, "0"}, KeyCase{1.5, "1"},
                    KeyCase{-1.0, "-1"}, KeyCase{-1.5, "-1"}, KeyCase{-978307200.0, "-978307200"},
                    KeyCase{9007199254740991.0 - 978307200.0, "9007198276433791"}));

TEST(UpcomingEventsAdapter, GivesAnEventWithoutIdentifierAnotherIdEachTime) {
    StoreEvent event = samples::event();
    event.eventIdentifier.reset();
    const QString first = made(event).id;
    EXPECT_NE(first, made(event).id);
    static const QRegularExpression canonical(
        QStringLiteral("^[0-9a-f]{8}-([0-9a-f]{4}-){3}[0-9a-f]{12}\\|794134800$"));
    EXPECT_TRUE(canonical.match(first).hasMatch()) << first.toStdString();
}

TEST(UpcomingEventsAdapter, KeepsAnEmptyIdentifier) {
    StoreEvent event = samples::event();
    event.eventIdentifier = QString();
    EXPECT_EQ(made(event).id, QStringLiteral("|794134800"));
}

class UnreadableStartTest : public testing::TestWithParam<double> {};

TEST_P(UnreadableStartTest, StopsTheProgram) {
    StoreEvent event = samples::event();
    event.startDate = Instant{Seconds{GetParam()}};
    EXPECT_DEATH((void)UpcomingEventsAdapter::makeEvent(event), "An event of the store");
}

TEST_P(UnreadableStartTest, DoesNotMatterInAnEventThatIsLeftOut) {
    StoreEvent event = samples::event();
    event.startDate = Instant{Seconds{GetParam()}};
    event.isAllDay = true;
    EXPECT_FALSE(isShown(event));
}

INSTANTIATE_TEST_SUITE_P(Values, UnreadableStartTest,
                         testing::Values(std::nan(""), std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(), 1e19, -1e19,
                                         9223372036854775808.0 + 978307200.0));

TEST(UpcomingEventsAdapterDeathTest, StopsTheProgramAtAnUnreadableEnd) {
    StoreEvent event = samples::event();
    event.endDate = Instant{Seconds{std::nan("")}};
    EXPECT_DEATH((void)UpcomingEventsAdapter::makeEvent(event), "An event of the store");
}

TEST(UpcomingEventsAdapter, TakesTheEarliestStartThatFits) {
    // The doubles next to the bound are 1024 apart.
    EXPECT_EQ(idOfStart(Seconds{-9223372036854775808.0}),
              QStringLiteral("work/planning|-9223372036854775808"));
}

} // namespace
} // namespace vantrel
