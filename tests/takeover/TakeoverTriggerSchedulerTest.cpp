#include "SchedulerFixture.h"

namespace vantrel {
namespace {

using fakes::at;

class TakeoverTriggerSchedulerTest : public SchedulerFixture {};

// When a takeover comes

struct LeadRow {
    const char *name;
    std::int64_t leadTimeSeconds;
    const char *lastMomentBefore;
    const char *fireTime;
};

class LeadTimeTest : public SchedulerFixture, public testing::WithParamInterface<LeadRow> {};

TEST_P(LeadTimeTest, FiresTheLeadBeforeTheStartAndNoEarlier) {
    preferences.setLeadTimeSeconds(GetParam().leadTimeSeconds);
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo(GetParam().lastMomentBefore);
    EXPECT_EQ(titles(), Titles{});
    runTo(GetParam().fireTime);
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

INSTANTIATE_TEST_SUITE_P(
    Leads, LeadTimeTest,
    testing::Values(LeadRow{"None", 0, "2026-03-02T08:59:59.999", "2026-03-02T09:00:00"},
                    LeadRow{"AMinute", 60, "2026-03-02T08:58:59.999", "2026-03-02T08:59:00"},
                    LeadRow{"FiveMinutes", 300, "2026-03-02T08:54:59.999", "2026-03-02T08:55:00"}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(TakeoverTriggerSchedulerTest, FiresAtOnceWhenTheLeadHasBegun) {
    add("Planning", queue.now() + Seconds{30});
    startScheduler();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, FiresAtOnceForAMeetingThatStartsThisMoment) {
    add("Planning", queue.now());
    startScheduler();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

struct LateRow {
    const char *name;
    double sinceStart;
    double length;
    bool fires;
};

class LateStartTest : public SchedulerFixture, public testing::WithParamInterface<LateRow> {};

TEST_P(LateStartTest, FiresAtOnceOrNever) {
    add("Planning", queue.now() - Seconds{GetParam().sinceStart}, Seconds{GetParam().length});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles().size(), GetParam().fires ? 1U : 0U);
    queue.advance(Seconds{7200});
    EXPECT_EQ(takeoverCount(), GetParam().fires ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(Lateness, LateStartTest,
                         testing::Values(LateRow{"WithinTheAllowance", 299, 1800, true},
                                         LateRow{"AtTheEndOfTheAllowance", 300, 1800, true},
                                         LateRow{"JustBeyondTheAllowance", 300.001, 1800, false},
                                         LateRow{"BeyondTheAllowance", 301, 1800, false},
                                         LateRow{"StillRunning", 119, 120, true},
                                         LateRow{"JustOver", 120, 120, false},
                                         LateRow{"Over", 121, 120, false},
                                         LateRow{"WithoutLength", 0, 0, false}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(TakeoverTriggerSchedulerTest, TakesOverAMeetingWithoutLengthAheadOfItsStart) {
    add("Reminder", local("2026-03-02T09:00:00"), Seconds{0});
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Reminder")});
}

TEST_F(TakeoverTriggerSchedulerTest, ShowsOneMeetingAfterTheOther) {
    add("Planning", local("2026-03-02T09:00:00"));
    add("Retro", local("2026-03-02T09:30:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    dismiss();
    runTo("2026-03-02T09:29:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Retro")});
}

TEST_F(TakeoverTriggerSchedulerTest, LeavesOutADayAheadUntilTheHourlyTickReachesIt) {
    add("Tomorrow", local("2026-03-03T08:00:00"));
    startScheduler();
    EXPECT_EQ(armed(), 0U);
    queue.advance(Seconds{3599});
    EXPECT_EQ(armed(), 0U);
    queue.advance(Seconds{1});
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-03T07:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Tomorrow")});
}

TEST_F(TakeoverTriggerSchedulerTest, ReachesUpToADayAhead) {
    add("Tomorrow", queue.now() + Seconds{86400.0 - 0.001});
    startScheduler();
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, FindsAtTheHourlyTickWhatNobodyAnnounced) {
    startScheduler();
    add("Planning", local("2026-03-02T11:00:00"));
    queue.advance(Seconds{3600});
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, MarksTheSecondOfTwoMeetingsAtOneMomentAsShown) {
    add("First", local("2026-03-02T09:00:00"));
    add("Second", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("First")});
    dismiss();
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{});
    EXPECT_EQ(armed(), 0U);
}

// Planning anew

TEST_F(TakeoverTriggerSchedulerTest, ArmsEachMeetingOnceHoweverOftenItPlans) {
    add("Planning", local("2026-03-02T09:00:00"));
    add("Retro", local("2026-03-02T10:00:00"));
    startScheduler();
    scheduler->refresh();
    scheduler->refresh();
    EXPECT_EQ(armed(), 2U);
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, ForgetsAMeetingThatWasTakenOutOfTheCalendar) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    remove("Planning");
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverTriggerSchedulerTest, FollowsAMeetingThatWasMoved) {
    StoreEvent &event = add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    event.startDate = local("2026-03-02T10:00:00");
    event.endDate = local("2026-03-02T10:30:00");
    scheduler->refresh();
    runTo("2026-03-02T09:58:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T09:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, ShowsAMeetingAgainThatWasMovedAfterItsTakeover) {
    StoreEvent &event = add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();
    event.startDate = local("2026-03-02T10:00:00");
    event.endDate = local("2026-03-02T10:30:00");
    scheduler->refresh();
    runTo("2026-03-02T09:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, DoesNotShowAMeetingTwice) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();
    for (int minute = 0; minute < 40; ++minute) {
        scheduler->refresh();
        EXPECT_EQ(armed(), 0U);
        queue.advance(Seconds{60});
    }
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, RemembersWhatItShowedUntilTheMeetingIsOver) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();

    queue.jumpWallTo(local("2026-03-02T09:29:59"));
    scheduler->refresh();
    queue.jumpWallTo(local("2026-03-02T08:30:00"));
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);

    queue.jumpWallTo(local("2026-03-02T09:30:00"));
    scheduler->refresh();
    queue.jumpWallTo(local("2026-03-02T08:30:00"));
    scheduler->refresh();
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, TellsTheOccurrencesOfASeriesApart) {
    add("Standup", local("2026-03-02T09:00:00"));
    add("Standup", local("2026-03-02T11:00:00"));
    startScheduler();
    EXPECT_EQ(armed(), 2U);
    runTo("2026-03-02T08:59:00");
    dismiss();
    scheduler->refresh();
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-02T10:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Standup")});
}

TEST_F(TakeoverTriggerSchedulerTest, CatchesUpAfterASleepBeforeTheStart) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    queue.suspend(Seconds{3570});
    queue.runDue();
    EXPECT_EQ(titles(), Titles{});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, FollowsAClockThatWasSetBack) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:30:00");
    queue.jumpWallTo(local("2026-03-02T08:00:00"));
    scheduler->refresh();
    runTo("2026-03-02T08:58:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, SurvivesAPlanMadeAnewInTheMidstOfFiring) {
    add("Planning", local("2026-03-02T09:00:00"));
    add("Retro", local("2026-03-02T10:00:00"));
    startScheduler();
    store.whileFetching = [this] {
        store.whileFetching = nullptr;
        scheduler->refresh();
    };
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    dismiss();
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-02T09:59:00");
    EXPECT_EQ(takeoverCount(), 2U);
}

// Stored events that have changed by the time of the fire

TEST_F(TakeoverTriggerSchedulerTest, SkipsAMeetingThatVanishedAndCountsItAsShown) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    remove("Planning");
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeoverCount(), 0U);
    add("Planning", local("2026-03-02T09:00:00"));
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverTriggerSchedulerTest, AsksTheStoreForWhatStandsAheadOfTheBar) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(store.askedFor, Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, ShowsNothingForAMeetingWithoutIdentifier) {
    add("Planning", local("2026-03-02T09:00:00")).eventIdentifier.reset();
    startScheduler();
    runTo("2026-03-02T08:59:30");
    EXPECT_EQ(takeoverCount(), 0U);
    EXPECT_EQ(store.askedFor.size(), 1U);
}

// Pausing

TEST_F(TakeoverTriggerSchedulerTest, ArmsNothingWhilePaused) {
    add("Planning", local("2026-03-02T09:00:00"));
    preferences.setIsPaused(true);
    startScheduler();
    EXPECT_EQ(armed(), 0U);
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
    preferences.setIsPaused(false);
    queue.runDue();
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, ShowsNothingButMarksTheMeetingWhenAPauseBeginsAsItFires) {
    add("Planning", queue.now() + Seconds{120});
    const auto pause = queue.after(Seconds{60}, [this] { preferences.setIsPaused(true); });
    startScheduler();
    queue.advance(Seconds{60});
    EXPECT_EQ(takeoverCount(), 0U);
    preferences.setIsPaused(false);
    queue.runDue();
    EXPECT_EQ(takeoverCount(), 0U);
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverTriggerSchedulerTest, CatchesUpWhenAPauseEndsBeforeTheStart) {
    add("Planning", local("2026-03-02T09:00:00"));
    preferences.setIsPaused(true);
    startScheduler();
    runTo("2026-03-02T08:59:30");
    preferences.setIsPaused(false);
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, LeavesATakeoverUpWhenAPauseBegins) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    preferences.setIsPaused(true);
    queue.advance(Seconds{1});
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    press(Key::space);
    EXPECT_EQ(today().rescuesFromTakeover, 1);
}

// Settings

struct SettingRow {
    const char *name;
    void (*assign)(PreferencesStore &);
    bool plansAnew;
};

class SettingChangeTest : public SchedulerFixture,
                          public testing::WithParamInterface<SettingRow> {};

TEST_P(SettingChangeTest, PlansAnewOnTheNextTurnOrNotAtAll) {
    startScheduler();
    const int before = store.fetchCount;
    GetParam().assign(preferences);
    EXPECT_EQ(store.fetchCount, before);
    queue.runDue();
    EXPECT_EQ(store.fetchCount > before, GetParam().plansAnew);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, SettingChangeTest,
    testing::Values(
        SettingRow{"selectedCalendarIDs",
                   [](PreferencesStore &store) {
                       store.setSelectedCalendarIDs({QStringLiteral("work"), QStringLiteral("b")});
                   },
                   true},
        SettingRow{"leadTimeSeconds", [](PreferencesStore &store) { store.setLeadTimeSeconds(10); },
                   true},
        SettingRow{"isPaused", [](PreferencesStore &store) { store.setIsPaused(false); }, true},
        SettingRow{"workHoursEnabled",
                   [](PreferencesStore &store) { store.setWorkHoursEnabled(true); }, true},
        SettingRow{"workHoursStartMinute",
                   [](PreferencesStore &store) { store.setWorkHoursStartMinute(0); }, true},
        SettingRow{"workHoursEndMinute",
                   [](PreferencesStore &store) { store.setWorkHoursEndMinute(1); }, true},
        SettingRow{"workHoursWeekdays",
                   [](PreferencesStore &store) { store.setWorkHoursWeekdays({1}); }, true},
        SettingRow{"snoozeDurationMinutes",
                   [](PreferencesStore &store) { store.setSnoozeDurationMinutes(2); }, false},
        SettingRow{"autoCloseSeconds",
                   [](PreferencesStore &store) { store.setAutoCloseSeconds(2); }, false},
        SettingRow{"joinTarget",
                   [](PreferencesStore &store) { store.setJoinTarget(JoinTarget::defaultBrowser); },
                   false},
        SettingRow{"shortcutOnJoin",
                   [](PreferencesStore &store) { store.setShortcutOnJoin(QStringLiteral("x")); },
                   false},
        SettingRow{"selectedTheme",
                   [](PreferencesStore &store) { store.setSelectedTheme(Theme::dusk); }, false}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(TakeoverTriggerSchedulerTest, PlansOnceAtStartAndOnceForEachSettingItSubscribesTo) {
    scheduler->start();
    constexpr int fetchesOfAPlan = 2; // The calendars, then their events.
    EXPECT_EQ(store.fetchCount, fetchesOfAPlan);
    queue.runDue();
    EXPECT_EQ(store.fetchCount, 8 * fetchesOfAPlan);
}

TEST_F(TakeoverTriggerSchedulerTest, PlansByTheValueThatWasAssigned) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    preferences.setLeadTimeSeconds(240);
    queue.runDue();
    runTo("2026-03-02T08:55:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T08:56:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, PlansByTheClampedValue) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    preferences.setLeadTimeSeconds(5000);
    queue.runDue();
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-02T08:54:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T08:55:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, KeepsToALeadBeyondItsRangeThatWasStored) {
    defaults.objects[QStringLiteral("Vantrel.leadTimeSeconds")] = 1000;
    PreferencesStore stored(defaults);
    TakeoverTriggerScheduler other(
        store, query, stored, copyProvider, controller, rescueLog, queue,
        [this] { return calendar; }, workspace);
    add("Planning", queue.now() + Seconds{1060});
    other.refresh();
    queue.advance(Seconds{59});
    EXPECT_EQ(takeoverCount(), 0U);
    queue.advance(Seconds{1});
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, WatchesOnlySelectedCalendars) {
    auto home = std::make_shared<StoreCalendar>();
    home->calendarIdentifier = QStringLiteral("home");
    store.storedCalendars.push_back(*home);
    add("Dentist", local("2026-03-02T09:00:00")).calendar = home;
    startScheduler();
    EXPECT_EQ(armed(), 0U);
    preferences.setSelected(QStringLiteral("home"), true);
    queue.runDue();
    EXPECT_EQ(armed(), 1U);
    preferences.setSelectedCalendarIDs({});
    queue.runDue();
    EXPECT_EQ(armed(), 0U);
}

// Beginning and ending

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

// Snoozing

TEST_F(TakeoverTriggerSchedulerTest, BringsASnoozedTakeoverBackHoweverLateItIs) {
    preferences.setLeadTimeSeconds(0);
    preferences.setSnoozeDurationMinutes(5);
    add("Planning", local("2026-03-02T08:30:00"));
    startScheduler();
    runTo("2026-03-02T08:30:30");
    pressSnooze();
    runTo("2026-03-02T08:35:29.999");
    EXPECT_EQ(titles(), Titles{});
    runTo("2026-03-02T08:35:30");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    EXPECT_EQ(today().snoozes, 1);
}

TEST_F(TakeoverTriggerSchedulerTest, SnoozesAgainAndAgain) {
    preferences.setSnoozeDurationMinutes(15);
    add("Planning", local("2026-03-02T08:10:00"), Seconds{600});
    startScheduler();
    runTo("2026-03-02T08:09:00");
    pressSnooze();
    runTo("2026-03-02T08:24:00");
    EXPECT_EQ(titles().size(), 1U);
    pressSnooze();
    runTo("2026-03-02T08:39:00");
    EXPECT_EQ(titles().size(), 1U);
    EXPECT_EQ(today().snoozes, 2);
    dismiss();
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverTriggerSchedulerTest, BringsASnoozedTakeoverBackOutsideTheWorkHours) {
    preferences.setWorkHoursEnabled(true);
    preferences.setWorkHoursStartMinute(480);
    preferences.setWorkHoursEndMinute(520);
    preferences.setSnoozeDurationMinutes(2);
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    pressSnooze();
    queue.advance(Seconds{120});
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, SnoozesForTheTimeThatIsSetWhenSnoozeIsPressed) {
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    preferences.setSnoozeDurationMinutes(3);
    pressSnooze();
    preferences.setSnoozeDurationMinutes(10);
    queue.advance(Seconds{179});
    EXPECT_EQ(titles(), Titles{});
    queue.advance(Seconds{1});
    EXPECT_EQ(titles().size(), 1U);
}

TEST_F(TakeoverTriggerSchedulerTest, BringsASnoozedTakeoverBackAtOnceWhenThePlanIsMadeAnew) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    pressSnooze();
    runTo("2026-03-02T08:59:30");
    EXPECT_EQ(titles(), Titles{});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    dismiss();
    runTo("2026-03-02T09:05:00");
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverTriggerSchedulerTest,
       EndsASnoozeAtOnceWhenThePlanIsMadeAnewWithinFiveMinutesOfTheStart) {
    preferences.setSnoozeDurationMinutes(5);
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    pressSnooze();
    runTo("2026-03-02T08:41:00");
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, LosesASnoozeWhenThePlanIsMadeAnewLaterThanThat) {
    preferences.setSnoozeDurationMinutes(15);
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    pressSnooze();
    runTo("2026-03-02T08:45:01");
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverTriggerSchedulerTest, ShowsAMeetingThatBeganBeforeTheProgramDid) {
    add("Planning", queue.now() - Seconds{240});
    startScheduler();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, ShowsAMeetingThatBeganWhileTheMachineSlept) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:50:00");
    queue.suspend(Seconds{14 * 60});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverTriggerSchedulerTest, DoesNotShowAnAnsweredTakeoverAgainWhileItsMeetingIsYoung) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();
    runTo("2026-03-02T09:03:00");
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverTriggerSchedulerTest, LosesASnoozeThatEndsWhileAnotherTakeoverIsUp) {
    preferences.setSnoozeDurationMinutes(5);
    preferences.setAutoCloseSeconds(0);
    add("Planning", local("2026-03-02T08:20:00"));
    add("Retro", local("2026-03-02T08:24:30"));
    startScheduler();
    runTo("2026-03-02T08:19:00");
    pressSnooze();
    runTo("2026-03-02T08:25:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Retro")});
    dismiss();
    queue.advance(Seconds{1200});
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverTriggerSchedulerTest, EndsASnoozeWithAPause) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    pressSnooze();
    preferences.setIsPaused(true);
    queue.advance(Seconds{3000});
    EXPECT_EQ(titles(), Titles{});
}

// Auto-close

TEST_F(TakeoverTriggerSchedulerTest, ClosesAnUnansweredTakeoverAndCountsADismissal) {
    preferences.setAutoCloseSeconds(1);
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:01");
    EXPECT_EQ(today().dismisses, 1);
    queue.advance(Seconds{0.2});
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverTriggerSchedulerTest, LeavesATakeoverUpForEverWithAnAutoCloseOfNought) {
    preferences.setAutoCloseSeconds(0);
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T21:00:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    EXPECT_EQ(today().dismisses, 0);
}

TEST_F(TakeoverTriggerSchedulerTest, TakesTheAutoCloseThatIsSetWhenItFires) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    preferences.setAutoCloseSeconds(7);
    runTo("2026-03-02T08:59:06");
    EXPECT_EQ(today().dismisses, 0);
    runTo("2026-03-02T08:59:07");
    EXPECT_EQ(today().dismisses, 1);
}

} // namespace
} // namespace vantrel
