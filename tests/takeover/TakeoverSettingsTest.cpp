#include "SchedulerFixture.h"

#include <ostream>

namespace vantrel {
namespace {

/// Pauses and settings that change.
class TakeoverSettingsTest : public SchedulerFixture {};

TEST_F(TakeoverSettingsTest, ArmsNothingWhilePaused) {
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

TEST_F(TakeoverSettingsTest, ShowsNothingButMarksTheMeetingWhenAPauseBeginsAsItFires) {
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

TEST_F(TakeoverSettingsTest, CatchesUpWhenAPauseEndsBeforeTheStart) {
    add("Planning", local("2026-03-02T09:00:00"));
    preferences.setIsPaused(true);
    startScheduler();
    runTo("2026-03-02T08:59:30");
    preferences.setIsPaused(false);
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverSettingsTest, LeavesATakeoverUpWhenAPauseBegins) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    preferences.setIsPaused(true);
    queue.advance(Seconds{1});
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    press(Key::space);
    EXPECT_EQ(today().rescuesFromTakeover, 1);
}

struct SettingRow {
    const char *name;
    void (*assign)(PreferencesStore &);
    bool plansAnew;
};

void PrintTo(const SettingRow &row, std::ostream *out) {
    *out << row.name;
}

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

TEST_F(TakeoverSettingsTest, PlansOnceAtStartAndOnceForEachSettingItSubscribesTo) {
    scheduler->start();
    constexpr int fetchesOfAPlan = 2; // The calendars, then their events.
    EXPECT_EQ(store.fetchCount, fetchesOfAPlan);
    queue.runDue();
    EXPECT_EQ(store.fetchCount, 8 * fetchesOfAPlan);
}

TEST_F(TakeoverSettingsTest, PlansByTheValueThatWasAssigned) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    preferences.setLeadTimeSeconds(240);
    queue.runDue();
    runTo("2026-03-02T08:55:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T08:56:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverSettingsTest, PlansByTheClampedValue) {
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

TEST_F(TakeoverSettingsTest, KeepsToALeadBeyondItsRangeThatWasStored) {
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

TEST_F(TakeoverSettingsTest, WatchesOnlySelectedCalendars) {
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

TEST_F(TakeoverSettingsTest, ClosesAnUnansweredTakeoverAndCountsADismissal) {
    preferences.setAutoCloseSeconds(1);
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:01");
    EXPECT_EQ(today().dismisses, 1);
    queue.advance(Seconds{0.2});
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverSettingsTest, LeavesATakeoverUpForEverWithAnAutoCloseOfNought) {
    preferences.setAutoCloseSeconds(0);
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T21:00:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    EXPECT_EQ(today().dismisses, 0);
}

TEST_F(TakeoverSettingsTest, TakesTheAutoCloseThatIsSetWhenItFires) {
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
