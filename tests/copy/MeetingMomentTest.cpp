#include <copy/MeetingMomentResolver.h>
#include <fakes/Times.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;
using MeetingShape = MeetingMoment::MeetingShape;
using Recurrence = MeetingMoment::Recurrence;
using LinkState = MeetingMoment::LinkState;
using Urgency = MeetingMoment::Urgency;

MeetingMomentInputs inputs() {
    MeetingMomentInputs inputs;
    inputs.title = QStringLiteral("Planning");
    inputs.startsAt = at("2026-03-02T09:00:00");
    inputs.endsAt = at("2026-03-02T10:00:00");
    return inputs;
}

MeetingMoment momentOf(const MeetingMomentInputs &inputs) {
    return MeetingMomentResolver::moment(inputs, {}, inputs.startsAt - Seconds{60.0}, calendarIn());
}

Urgency urgencyAt(Instant now) {
    return MeetingMomentResolver::moment(inputs(), {}, now, calendarIn()).urgency;
}

TEST(MeetingMoment, GathersEveryFactOfTheMeeting) {
    MeetingMomentInputs monday = inputs();
    monday.attendeeCount = 4;
    monday.isRecurring = true;
    monday.hasPhoneOnly = true;
    const DayEventSummary earlier{at("2026-03-02T08:00:00"), at("2026-03-02T08:58:00")};
    const MeetingMoment moment = MeetingMomentResolver::moment(
        monday, {earlier}, at("2026-03-02T08:59:00"), calendarIn("Europe/Zurich"));
    EXPECT_EQ(
        moment,
        (MeetingMoment{MeetingMoment::TimeOfDay::morning, MeetingMoment::DayType::monday,
                       MeetingMoment::DayPosition::lastOfDay, MeetingMoment::GapBefore::backToBack,
                       MeetingShape::smallGroup, Recurrence::recurring, LinkState::phoneOnly,
                       Urgency::normal, QStringLiteral("Planning")}));
}

struct ShapeCase {
    std::int64_t attendeeCount;
    MeetingShape expected;
};

class MeetingShapeTest : public testing::TestWithParam<ShapeCase> {};

TEST_P(MeetingShapeTest, FollowsFromTheNumberOfAttendees) {
    MeetingMomentInputs given = inputs();
    given.attendeeCount = GetParam().attendeeCount;
    EXPECT_EQ(momentOf(given).meetingShape, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Bounds, MeetingShapeTest,
    testing::Values(ShapeCase{0, MeetingShape::oneOnOne}, ShapeCase{1, MeetingShape::oneOnOne},
                    ShapeCase{2, MeetingShape::oneOnOne}, ShapeCase{3, MeetingShape::smallGroup},
                    ShapeCase{5, MeetingShape::smallGroup}, ShapeCase{6, MeetingShape::largeGroup},
                    ShapeCase{std::numeric_limits<std::int64_t>::max(), MeetingShape::largeGroup}));

TEST(MeetingMoment, IsRecurringOrAOneOff) {
    MeetingMomentInputs given = inputs();
    EXPECT_EQ(momentOf(given).recurrence, Recurrence::oneOff);
    given.isRecurring = true;
    EXPECT_EQ(momentOf(given).recurrence, Recurrence::recurring);
}

struct LinkCase {
    bool hasVideoLink;
    bool hasPhoneOnly;
    bool hasLocation;
    LinkState expected;
};

class LinkStateTest : public testing::TestWithParam<LinkCase> {};

TEST_P(LinkStateTest, TakesTheFirstWayIn) {
    MeetingMomentInputs given = inputs();
    given.hasVideoLink = GetParam().hasVideoLink;
    given.hasPhoneOnly = GetParam().hasPhoneOnly;
    given.hasLocation = GetParam().hasLocation;
    EXPECT_EQ(momentOf(given).linkState, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(AllCombinations, LinkStateTest,
                         testing::Values(LinkCase{false, false, false, LinkState::noDestination},
                                         LinkCase{false, false, true, LinkState::inPersonOnly},
                                         LinkCase{false, true, false, LinkState::phoneOnly},
                                         LinkCase{false, true, true, LinkState::phoneOnly},
                                         LinkCase{true, false, false, LinkState::hasVideoLink},
                                         LinkCase{true, false, true, LinkState::hasVideoLink},
                                         LinkCase{true, true, false, LinkState::hasVideoLink},
                                         LinkCase{true, true, true, LinkState::hasVideoLink}));

TEST(MeetingMoment, IsNormalUntilTheVeryStartAndLateFromThenOn) {
    const Instant start = inputs().startsAt;
    EXPECT_EQ(urgencyAt(start - Seconds{0.001}), Urgency::normal);
    EXPECT_EQ(urgencyAt(start), Urgency::joinedLate);
    EXPECT_EQ(urgencyAt(start + Seconds{1.0}), Urgency::joinedLate);
}

TEST(MeetingMoment, DiffersByAnyOneField) {
    const MeetingMoment moment = momentOf(inputs());
    MeetingMoment other = moment;
    EXPECT_EQ(moment, other);
    other.title = QStringLiteral("Review");
    EXPECT_NE(moment, other);
    other = moment;
    other.meetingShape = MeetingShape::largeGroup;
    EXPECT_NE(moment, other);
}

TEST(MeetingMomentInputs, DifferByAnyOneField) {
    MeetingMomentInputs other = inputs();
    EXPECT_EQ(inputs(), other);
    other.endsAt += Seconds{1.0};
    EXPECT_NE(inputs(), other);
}

// The order of the cases

template <typename Case>
void expectInOrder(std::initializer_list<Case> cases) {
    int place = 0;
    for (const Case each : cases)
        EXPECT_EQ(static_cast<int>(each), place++);
}

TEST(MeetingMoment, ListsTheCasesOfItsFactsInOrder) {
    using enum MeetingMoment::TimeOfDay;
    using enum MeetingMoment::DayType;
    using enum MeetingMoment::DayPosition;
    using enum MeetingMoment::GapBefore;
    expectInOrder({earlyMorning, morning, midday, afternoon, lateAfternoon, evening});
    expectInOrder({monday, friday, midweek, weekend});
    expectInOrder({firstOfDay, lastOfDay, middleOfDay, onlyOfDay});
    expectInOrder({freshStart, backToBack, shortGap, longGap});
    expectInOrder({MeetingShape::oneOnOne, MeetingShape::smallGroup, MeetingShape::largeGroup});
    expectInOrder({Recurrence::oneOff, Recurrence::recurring});
    expectInOrder({LinkState::hasVideoLink, LinkState::phoneOnly, LinkState::inPersonOnly,
                   LinkState::noDestination});
    expectInOrder({Urgency::normal, Urgency::joinedLate});
}

} // namespace
} // namespace vantrel
