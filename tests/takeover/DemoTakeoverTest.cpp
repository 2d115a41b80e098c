#include <fakes/Times.h>
#include <takeover/DemoTakeover.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

class EchoingProvider : public CopyProvider {
public:
    [[nodiscard]] std::optional<QString> line(const MeetingMoment &moment) const override {
        return moment.title + u'!';
    }
};

class SilentProvider : public CopyProvider {
public:
    [[nodiscard]] std::optional<QString> line(const MeetingMoment &) const override { return {}; }
};

// A Monday.
const Instant now = fakes::at("2026-03-02T09:00:00");

TEST(DemoTakeover, StandsForAMeetingAMinuteAheadWithNothingToOpen) {
    const TakeoverContext context = demoTakeover(now, fakes::calendarIn(), EchoingProvider());
    EXPECT_EQ(context.title, u"Vantrel demo meeting");
    EXPECT_EQ(context.startsAt, now + Seconds{60.0});
    EXPECT_EQ(context.endsAt, now + Seconds{1860.0});
    EXPECT_EQ(context.primaryAction, TakeoverContext::PrimaryAction::acknowledge());
    EXPECT_EQ(context.copyLine, u"Vantrel demo meeting!");
}

TEST(DemoTakeover, ResolvesTheMomentOfItsStartOnAnEmptyDay) {
    const MeetingMoment moment = demoTakeover(now, fakes::calendarIn(), SilentProvider()).moment;
    EXPECT_EQ(moment.timeOfDay, MeetingMoment::TimeOfDay::morning);
    EXPECT_EQ(moment.dayType, MeetingMoment::DayType::monday);
    EXPECT_EQ(moment.dayPosition, MeetingMoment::DayPosition::onlyOfDay);
    EXPECT_EQ(moment.gapBefore, MeetingMoment::GapBefore::freshStart);
    EXPECT_EQ(moment.recurrence, MeetingMoment::Recurrence::oneOff);
    EXPECT_EQ(moment.linkState, MeetingMoment::LinkState::noDestination);
    EXPECT_EQ(moment.urgency, MeetingMoment::Urgency::normal);
    EXPECT_EQ(
        demoTakeover(now, fakes::calendarIn("Pacific/Auckland"), SilentProvider()).moment.timeOfDay,
        MeetingMoment::TimeOfDay::evening);
}

TEST(DemoTakeover, SaysNothingWhereNoLineFits) {
    EXPECT_EQ(demoTakeover(now, fakes::calendarIn(), SilentProvider()).copyLine, std::nullopt);
}

} // namespace
} // namespace vantrel
