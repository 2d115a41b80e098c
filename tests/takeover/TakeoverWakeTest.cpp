#include "SchedulerFixture.h"

#include <calendar/CalendarChangeMonitor.h>

namespace vantrel {
namespace {

/// The scheduler behind the monitor, as the coordinator wires them: a store's notice makes a plan
/// half a second after the last of a burst.
class TakeoverWakeTest : public SchedulerFixture {
protected:
    /// The machine sleeps until that local time and wakes: the kernel, the login manager and the
    /// window that moved all give notice, not at once.
    void sleepUntil(const char *dateTime) {
        queue.suspend(local(dateTime) - queue.now());
        for (int notice = 0; notice < 3; ++notice) {
            store.changed.announce();
            queue.advance(Seconds{0.1});
        }
    }

    void start() {
        startScheduler();
        monitor.start();
    }

    int plans = 0;
    CalendarChangeMonitor monitor{store, Seconds{0.5}, queue, [this] {
                                      ++plans;
                                      scheduler->refresh();
                                  }};
};

TEST_F(TakeoverWakeTest, MakesOnePlanWithinASecondOfWaking) {
    add("later", local("2026-03-02T15:00:00"));
    start();
    sleepUntil("2026-03-02T14:00:00");
    queue.advance(Seconds{0.7});
    EXPECT_EQ(plans, 1);
    queue.advance(Seconds{60.0});
    EXPECT_EQ(plans, 1);
    runTo("2026-03-02T14:58:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T14:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("later")});
}

TEST_F(TakeoverWakeTest, FiresNothingAgainThatFiredBeforeTheSleep) {
    add("standup", local("2026-03-02T09:00:00"));
    start();
    runTo("2026-03-02T08:59:00");
    ASSERT_EQ(takeoverCount(), 1U);
    dismiss();
    sleepUntil("2026-03-02T09:02:00");
    queue.advance(Seconds{3.0});
    sleepUntil("2026-03-02T09:04:00");
    queue.advance(Seconds{600.0});
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverWakeTest, FiresWhatBeganAtMostFiveMinutesAgoAndNothingOlder) {
    add("over", local("2026-03-02T09:00:00"));
    add("begun", local("2026-03-02T09:02:00"));
    start();
    sleepUntil("2026-03-02T09:06:00");
    queue.advance(Seconds{0.7});
    EXPECT_EQ(titles(), Titles{QStringLiteral("begun")});
    dismiss();
    queue.advance(Seconds{3600.0});
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverWakeTest, FiresOnceForAMeetingWhoseTakeoverWasDueInTheSleep) {
    add("due", local("2026-03-02T09:00:00"));
    start();
    sleepUntil("2026-03-02T08:59:30");
    queue.advance(Seconds{0.7});
    EXPECT_EQ(titles(), Titles{QStringLiteral("due")});
    dismiss();
    // The timer that was armed before the sleep comes late; it has nothing more to say.
    queue.advance(Seconds{7200.0});
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverWakeTest, PlansAnewWhenTheClockIsSetBack) {
    add("meeting", local("2026-03-02T09:00:00"));
    start();
    runTo("2026-03-02T08:30:00");
    queue.jumpWallTo(local("2026-03-02T07:30:00"));
    store.changed.announce();
    queue.advance(Seconds{0.6});
    runTo("2026-03-02T08:58:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("meeting")});
}

} // namespace
} // namespace vantrel
