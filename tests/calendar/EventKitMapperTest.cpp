#include "SampleEvents.h"

#include <calendar/EventKitMapper.h>

#include <gtest/gtest.h>

#include <limits>

namespace vantrel {
namespace {

using samples::guest;
using samples::user;
using Status = StoreParticipantStatus;

TEST(EventKitMapper, CarriesEveryField) {
    StoreEvent event = samples::event();
    event.hasRecurrenceRules = true;
    event.attendees = samples::attendees(
        {user(Status::accepted), guest(Status::declined), guest(Status::unknown)});
    event.location = QStringLiteral("Room 4");
    event.notes = QString::fromUtf16(samples::phoneNumber);
    const MeetingMomentInputs expected{.title = QStringLiteral("Planning"),
                                       .startsAt = fakes::at("2026-03-02T09:00:00"),
                                       .endsAt = fakes::at("2026-03-02T09:30:00"),
                                       .attendeeCount = 3,
                                       .isRecurring = true,
                                       .hasVideoLink = false,
                                       .hasPhoneOnly = true,
                                       .hasLocation = true};
    EXPECT_EQ(EventKitMapper::makeInputs(event), expected);
}

TEST(EventKitMapper, FillsInWhatAnEventMayLack) {
    StoreEvent event;
    event.startDate = event.endDate = fakes::at("2026-03-02T09:00:00");
    MeetingMomentInputs expected;
    expected.title = QStringLiteral("(no title)");
    expected.startsAt = expected.endsAt = event.startDate;
    EXPECT_EQ(EventKitMapper::makeInputs(event), expected);
}

TEST(EventKitMapper, KeepsAnEmptyTitleEmpty) {
    StoreEvent event = samples::event();
    event.title = QStringLiteral("");
    EXPECT_EQ(EventKitMapper::makeInputs(event).title, QString());
}

TEST(EventKitMapper, HasNoPhoneOnlyBesideAVideoLink) {
    StoreEvent event = samples::event();
    event.location = QString::fromUtf16(samples::phoneNumber);
    event.notes = QString::fromUtf16(samples::zoomLink);
    const MeetingMomentInputs inputs = EventKitMapper::makeInputs(event);
    EXPECT_TRUE(inputs.hasVideoLink);
    EXPECT_FALSE(inputs.hasPhoneOnly);
    EXPECT_TRUE(inputs.hasLocation);
}

TEST(EventKitMapper, FindsAVideoLinkInTheUrl) {
    StoreEvent event = samples::event();
    event.url = Url::fromString(QString::fromUtf16(samples::zoomLink));
    EXPECT_TRUE(EventKitMapper::makeInputs(event).hasVideoLink);
}

TEST(EventKitMapper, HasNoLocationOfSpacesAndLineBreaks) {
    StoreEvent event = samples::event();
    event.location = QStringLiteral(" \n\t ");
    EXPECT_FALSE(EventKitMapper::makeInputs(event).hasLocation);
}

TEST(EventKitMapper, MapsWhatTheListOfUpcomingEventsLeavesOut) {
    StoreEvent event = samples::event();
    event.isAllDay = true;
    event.status = StoreEventStatus::cancelled;
    event.attendees = samples::attendees({user(Status::declined)});
    const MeetingMomentInputs inputs = EventKitMapper::makeInputs(event);
    EXPECT_EQ(inputs.title, QStringLiteral("Planning"));
    EXPECT_EQ(inputs.attendeeCount, 1);
}

TEST(EventKitMapperDeathTest, StopsTheProgramAtAnUnreadableSpan) {
    const Instant never{Seconds{std::numeric_limits<double>::quiet_NaN()}};
    StoreEvent withoutStart = samples::event();
    withoutStart.startDate = never;
    EXPECT_DEATH((void)EventKitMapper::makeInputs(withoutStart), "no readable start or end");
    StoreEvent withoutEnd = samples::event();
    withoutEnd.endDate = never;
    EXPECT_DEATH((void)EventKitMapper::makeInputs(withoutEnd), "no readable start or end");
}

} // namespace
} // namespace vantrel
