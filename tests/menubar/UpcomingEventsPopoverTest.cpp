#include "MenuBarCalendar.h"

#include <fakes/RecordingPopups.h>
#include <menubar/UpcomingEventsPopover.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

class UpcomingEventsPopoverTest : public testing::Test {
protected:
    UpcomingEventsPopoverTest() {
        calendar.add(QStringLiteral("Review"), fakes::at("2026-03-02T10:00:00"));
    }

    const fakes::RecordingPopups::Record &window() const { return *popups.popups.at(0); }

    const QRect item{100, 0, 24, 24};

    MenuBarCalendar calendar;
    fakes::RecordingPopups popups;
    UpcomingEventsViewModel viewModel{calendar.query, calendar.preferences, calendar.queue,
                                      [] { return fakes::calendarIn(); }};
    UpcomingEventsPopover popover{
        popups, {QStringLiteral("Module"), QStringLiteral("View"), {}}, viewModel, calendar.queue};
};

TEST_F(UpcomingEventsPopoverTest, IsMadeOnceAndNotShown) {
    ASSERT_EQ(popups.popups.size(), 1U);
    EXPECT_EQ(window().content.typeName, u"View");
    EXPECT_FALSE(popover.isShown());
    EXPECT_EQ(calendar.store.fetchCount, 0);
}

TEST_F(UpcomingEventsPopoverTest, ReadsTheCalendarsWheneverItIsShown) {
    popover.toggle(item);
    EXPECT_TRUE(popover.isShown());
    ASSERT_EQ(window().places.size(), 1U);
    EXPECT_EQ(window().places[0].anchor, item);
    EXPECT_EQ(viewModel.groups().size(), 1U);
    popover.close();
    calendar.store.storedEvents.clear();
    popover.toggle(std::nullopt);
    EXPECT_EQ(window().places.at(1).anchor, std::nullopt);
    EXPECT_TRUE(viewModel.groups().empty());
    EXPECT_EQ(popups.popups.size(), 1U);
}

TEST_F(UpcomingEventsPopoverTest, KeepsTheListInStepOnlyWhileItIsShown) {
    popover.show(item);
    EXPECT_EQ(calendar.queue.pendingCount(), 1U);
    popups.clickElsewhere();
    EXPECT_EQ(calendar.queue.pendingCount(), 0U);
}

TEST_F(UpcomingEventsPopoverTest, ClosesOnAClickOnTheItem) {
    popover.toggle(item);
    popover.toggle(item);
    EXPECT_FALSE(popover.isShown());
    popover.toggle(item);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(UpcomingEventsPopoverTest, StaysClosedWhenTheDesktopClosedItByTheClickOnTheItem) {
    popover.toggle(item);
    popups.clickElsewhere();
    calendar.queue.advance(Seconds{0.2});
    popover.toggle(item);
    EXPECT_FALSE(popover.isShown());
    popover.toggle(item);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(UpcomingEventsPopoverTest, OpensOnAClickSomeTimeAfterItWasClosed) {
    popover.toggle(item);
    popups.clickElsewhere();
    calendar.queue.advance(Seconds{0.4});
    popover.toggle(item);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(UpcomingEventsPopoverTest, MayBeClosedWhenItIsNotShown) {
    popover.close();
    popover.toggle(item);
    EXPECT_TRUE(popover.isShown());
}

} // namespace
} // namespace vantrel
