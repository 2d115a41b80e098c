#include <fakes/InMemoryUserDefaults.h>
#include <preferences/PreferencesStore.h>

#include <QJsonArray>

#include <gtest/gtest.h>

#include <vector>

namespace vantrel {
namespace {

class PreferencesResetTest : public testing::Test {
protected:
    PreferencesResetTest() {
        store.setSelectedCalendarIDs({QStringLiteral("a")});
        store.setLeadTimeSeconds(300);
        store.setJoinTarget(JoinTarget::defaultBrowser);
        store.setIsPaused(true);
        store.setWorkHoursEnabled(true);
        store.setWorkHoursStartMinute(0);
        store.setWorkHoursEndMinute(1439);
        store.setWorkHoursWeekdays({1, 7});
        store.setShowNextMeetingInMenuBar(false);
        store.setMenuBarUpcomingHorizonMinutes(480);
        store.setShortcutOnJoin(QStringLiteral("Focus"));
        store.setSelectedTheme(Theme::dusk);
        store.setSnoozeDurationMinutes(15);
        store.setAutoCloseSeconds(0);
        defaults.objects[QStringLiteral("Vantrel.hasCompletedFirstRun")] = true;
        defaults.writes.clear();
    }

    fakes::InMemoryUserDefaults defaults;
    PreferencesStore store{defaults};
};

TEST_F(PreferencesResetTest, BringsEveryMemberBackToItsDefault) {
    store.resetAll();
    EXPECT_EQ(store.selectedCalendarIDs(), std::set<QString>{});
    EXPECT_EQ(store.leadTimeSeconds(), 60);
    EXPECT_EQ(store.joinTarget(), JoinTarget::appWhenInstalled);
    EXPECT_FALSE(store.isPaused());
    EXPECT_FALSE(store.workHoursEnabled());
    EXPECT_EQ(store.workHoursStartMinute(), 540);
    EXPECT_EQ(store.workHoursEndMinute(), 1020);
    EXPECT_EQ(store.workHoursWeekdays(), (std::set<std::int64_t>{2, 3, 4, 5, 6}));
    EXPECT_TRUE(store.showNextMeetingInMenuBar());
    EXPECT_EQ(store.menuBarUpcomingHorizonMinutes(), 120);
    EXPECT_EQ(store.shortcutOnJoin(), QString());
    EXPECT_EQ(store.selectedTheme(), Theme::hearth);
    EXPECT_EQ(store.snoozeDurationMinutes(), 1);
    EXPECT_EQ(store.autoCloseSeconds(), 900);
}

TEST_F(PreferencesResetTest, WritesTheDefaultsBackExceptTheSelection) {
    store.resetAll();
    const std::map<QString, QJsonValue> expected{
        {QStringLiteral("Vantrel.leadTimeSeconds"), 60},
        {QStringLiteral("Vantrel.joinTarget"), QLatin1String("appWhenInstalled")},
        {QStringLiteral("Vantrel.isPaused"), false},
        {QStringLiteral("Vantrel.workHoursEnabled"), false},
        {QStringLiteral("Vantrel.workHoursStartMinute"), 540},
        {QStringLiteral("Vantrel.workHoursEndMinute"), 1020},
        {QStringLiteral("Vantrel.workHoursWeekdays"), QJsonArray{2, 3, 4, 5, 6}},
        {QStringLiteral("Vantrel.showNextMeetingInMenuBar"), true},
        {QStringLiteral("Vantrel.menuBarUpcomingHorizonMinutes"), 120},
        {QStringLiteral("Vantrel.shortcutOnJoin"), QLatin1String("")},
        {QStringLiteral("Vantrel.selectedTheme"), QLatin1String("hearth")},
        {QStringLiteral("Vantrel.snoozeDurationMinutes"), 1},
        {QStringLiteral("Vantrel.autoCloseSeconds"), 900},
        {QStringLiteral("Vantrel.hasCompletedFirstRun"), true},
    };
    EXPECT_EQ(defaults.objects, expected);
}

TEST_F(PreferencesResetTest, RemovesTheFourteenKeysInOrderBeforeItWritesAny) {
    store.resetAll();
    const std::vector<QString> removed{
        QStringLiteral("Vantrel.selectedCalendarIDs"),
        QStringLiteral("Vantrel.leadTimeSeconds"),
        QStringLiteral("Vantrel.joinTarget"),
        QStringLiteral("Vantrel.isPaused"),
        QStringLiteral("Vantrel.autoCloseSeconds"),
        QStringLiteral("Vantrel.showNextMeetingInMenuBar"),
        QStringLiteral("Vantrel.menuBarUpcomingHorizonMinutes"),
        QStringLiteral("Vantrel.workHoursEnabled"),
        QStringLiteral("Vantrel.workHoursStartMinute"),
        QStringLiteral("Vantrel.workHoursEndMinute"),
        QStringLiteral("Vantrel.workHoursWeekdays"),
        QStringLiteral("Vantrel.selectedTheme"),
        QStringLiteral("Vantrel.snoozeDurationMinutes"),
        QStringLiteral("Vantrel.shortcutOnJoin"),
    };
    ASSERT_EQ(defaults.writes.size(), 14u + 13u);
    EXPECT_EQ(std::vector(defaults.writes.begin(), defaults.writes.begin() + 14), removed);
}

TEST_F(PreferencesResetTest, AnnouncesEveryMember) {
    int announcements = 0;
    const auto whole = store.willChange.subscribe([&] { ++announcements; });
    std::vector<std::set<QString>> selections;
    const auto selection = store.selectedCalendarIDsPublisher().subscribe(
        [&](const std::set<QString> &value) { selections.push_back(value); });
    std::vector<bool> pauses;
    const auto pause =
        store.isPausedPublisher().subscribe([&](bool value) { pauses.push_back(value); });
    store.resetAll();
    EXPECT_EQ(announcements, 14);
    EXPECT_EQ(selections,
              (std::vector<std::set<QString>>{{QStringLiteral("a")}, std::set<QString>{}}));
    EXPECT_EQ(pauses, (std::vector<bool>{true, false}));
}

TEST_F(PreferencesResetTest, GivesTheDefaultsToAStoreThatIsLoadedAfterwards) {
    store.resetAll();
    const PreferencesStore reloaded(defaults);
    EXPECT_EQ(reloaded.selectedCalendarIDs(), std::set<QString>{});
    EXPECT_EQ(reloaded.workHoursWeekdays(), (std::set<std::int64_t>{2, 3, 4, 5, 6}));
    EXPECT_EQ(reloaded.autoCloseSeconds(), 900);
}

} // namespace
} // namespace vantrel
