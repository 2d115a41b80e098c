#include <fakes/InMemoryUserDefaults.h>
#include <preferences/PreferencesStore.h>

#include <QJsonArray>

#include <gtest/gtest.h>

#include <vector>

namespace vantrel {
namespace {

class PreferencesChangedOutsideTest : public testing::Test {
protected:
    void change(const char *member, const QJsonValue &value) {
        defaults.objects[QStringLiteral("Vantrel.") + QLatin1String(member)] = value;
        defaults.changedOutside.announce();
    }

    fakes::InMemoryUserDefaults defaults;
    PreferencesStore store{defaults};
};

TEST_F(PreferencesChangedOutsideTest, TakesEverySettingAndWritesNone) {
    change("selectedCalendarIDs", QJsonArray{QStringLiteral("a")});
    change("leadTimeSeconds", 120);
    change("joinTarget", QStringLiteral("defaultBrowser"));
    change("isPaused", true);
    change("workHoursEnabled", true);
    change("workHoursStartMinute", 60);
    change("workHoursEndMinute", 120);
    change("workHoursWeekdays", QJsonArray{1});
    change("showNextMeetingInMenuBar", false);
    change("menuBarUpcomingHorizonMinutes", 90);
    change("shortcutOnJoin", QStringLiteral("Focus"));
    change("selectedTheme", QStringLiteral("dusk"));
    change("snoozeDurationMinutes", 5);
    change("autoCloseSeconds", 300);
    EXPECT_EQ(store.selectedCalendarIDs(), std::set<QString>{QStringLiteral("a")});
    EXPECT_EQ(store.leadTimeSeconds(), 120);
    EXPECT_EQ(store.joinTarget(), JoinTarget::defaultBrowser);
    EXPECT_TRUE(store.isPaused());
    EXPECT_TRUE(store.workHoursEnabled());
    EXPECT_EQ(store.workHoursStartMinute(), 60);
    EXPECT_EQ(store.workHoursEndMinute(), 120);
    EXPECT_EQ(store.workHoursWeekdays(), std::set<std::int64_t>{1});
    EXPECT_FALSE(store.showNextMeetingInMenuBar());
    EXPECT_EQ(store.menuBarUpcomingHorizonMinutes(), 90);
    EXPECT_EQ(store.shortcutOnJoin(), QStringLiteral("Focus"));
    EXPECT_EQ(store.selectedTheme(), Theme::dusk);
    EXPECT_EQ(store.snoozeDurationMinutes(), 5);
    EXPECT_EQ(store.autoCloseSeconds(), 300);
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(PreferencesChangedOutsideTest, TakesAValueBeyondItsRangeAsItStands) {
    change("leadTimeSeconds", 1000);
    EXPECT_EQ(store.leadTimeSeconds(), 1000);
}

TEST_F(PreferencesChangedOutsideTest, TakesTheDefaultOfWhatWasRemoved) {
    store.setLeadTimeSeconds(120);
    defaults.objects.clear();
    defaults.changedOutside.announce();
    EXPECT_EQ(store.leadTimeSeconds(), 60);
}

TEST_F(PreferencesChangedOutsideTest, TellsOfWhatChangedAlone) {
    int announcements = 0;
    const Subscription all = store.willChange.subscribe([&] { ++announcements; });
    std::vector<bool> paused;
    const Subscription one =
        store.isPausedPublisher().subscribe([&](bool value) { paused.push_back(value); });
    change("isPaused", true);
    defaults.changedOutside.announce();
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(paused, (std::vector<bool>{false, true}));
}

} // namespace
} // namespace vantrel
