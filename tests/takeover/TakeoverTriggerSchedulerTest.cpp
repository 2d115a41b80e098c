#include "SchedulerFixture.h"

namespace vantrel {
namespace {

/// Beginning and ending.
class TakeoverTriggerSchedulerTest : public SchedulerFixture {};

TEST_F(TakeoverTriggerSchedulerTest, WaitsForNothingOnceItIsStopped) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    scheduler->stop();
    EXPECT_EQ(queue.pendingCount(), 0U);
    const int before = store.fetchCount;
    preferences.setLeadTimeSeconds(30);
    queue.advance(Seconds{86400});
    EXPECT_EQ(store.fetchCount, before);
    EXPECT_EQ(takeoverCount(), 0U);
}

TEST_F(TakeoverTriggerSchedulerTest, DropsSignalsThatAreOnTheirWayWhenItIsStopped) {
    scheduler->start();
    preferences.setLeadTimeSeconds(30);
    scheduler->stop();
    const int before = store.fetchCount;
    queue.runDue();
    EXPECT_EQ(store.fetchCount, before);
}

TEST_F(TakeoverTriggerSchedulerTest, RemembersWhatItShowedOverAStop) {
    add("Planning", local("2026-03-02T09:00:00"));
    add("Retro", local("2026-03-02T10:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();
    scheduler->stop();
    startScheduler();
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-02T09:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Retro")});
}

TEST_F(TakeoverTriggerSchedulerTest, StartsTwiceLikeOnce) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    startScheduler();
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, LeavesATakeoverUpAndHearsItsAnswerWhenItIsStopped) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    scheduler->stop();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    press(Key::space);
    EXPECT_EQ(today().rescuesFromTakeover, 1);
}

TEST_F(TakeoverTriggerSchedulerTest, LeavesNothingBehindWhenItGoes) {
    add("Planning", local("2026-03-02T09:00:00"));
    scheduler->start();
    preferences.setLeadTimeSeconds(30);
    scheduler.reset();
    const int before = store.fetchCount;
    queue.advance(Seconds{86400});
    preferences.setLeadTimeSeconds(60);
    queue.runDue();
    EXPECT_EQ(store.fetchCount, before);
    EXPECT_EQ(takeoverCount(), 0U);
}

class OrphanedTakeoverTest : public SchedulerFixture, public testing::WithParamInterface<Key> {};

TEST_P(OrphanedTakeoverTest, DoesNothingWhenItIsAnswered) {
    add("Planning", local("2026-03-02T09:00:00")).url =
        Url::fromString(QStringLiteral("https://zoom.us/j/1"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    scheduler.reset();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    panels.press({GetParam(), GetParam() == Key::other ? QStringLiteral("s") : QString()});
    queue.advance(Seconds{3600});
    EXPECT_EQ(titles(), Titles{});
    EXPECT_TRUE(workspace.opened.empty());
    EXPECT_TRUE(rescueLog.byDay().empty());
}

INSTANTIATE_TEST_SUITE_P(Keys, OrphanedTakeoverTest,
                         testing::Values(Key::space, Key::escape, Key::other));

} // namespace
} // namespace vantrel
