#include <fakes/InMemoryUserDefaults.h>
#include <preferences/PreferencesStore.h>

#include <QJsonArray>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace vantrel {
namespace {

QString key(const char *member) {
    return QStringLiteral("Vantrel.") + QLatin1String(member);
}

class PreferencesAssignTest : public testing::Test {
protected:
    QJsonValue stored(const char *member) const { return defaults.objects.at(key(member)); }

    fakes::InMemoryUserDefaults defaults;
    PreferencesStore store{defaults};
};

struct RangeCase {
    const char *name;
    std::int64_t (PreferencesStore::*value)() const;
    SettingPublisher<std::int64_t> (PreferencesStore::*publisher)();
    void (PreferencesStore::*assign)(std::int64_t);
    std::int64_t assigned;
    std::int64_t expected;
};

class RangeTest : public PreferencesAssignTest, public testing::WithParamInterface<RangeCase> {};

TEST_P(RangeTest, AnnouncesTheValueThenTheClampedOneAndWritesOnlyThat) {
    const RangeCase &range = GetParam();
    const std::int64_t before = (store.*range.value)();
    std::vector<std::int64_t> seen;
    const Subscription subscription =
        (store.*range.publisher)().subscribe([&](std::int64_t value) { seen.push_back(value); });
    (store.*range.assign)(range.assigned);

    EXPECT_EQ((store.*range.value)(), range.expected);
    EXPECT_EQ(stored(range.name).toInteger(-1), range.expected);
    EXPECT_EQ(defaults.writes, std::vector{key(range.name)});
    const auto expectedValues = range.assigned == range.expected
                                    ? std::vector{before, range.assigned}
                                    : std::vector{before, range.assigned, range.expected};
    EXPECT_EQ(seen, expectedValues);
}

using S = PreferencesStore;

RangeCase leadTime(std::int64_t assigned, std::int64_t expected) {
    return {"leadTimeSeconds",
            &S::leadTimeSeconds,
            &S::leadTimeSecondsPublisher,
            &S::setLeadTimeSeconds,
            assigned,
            expected};
}

RangeCase workStart(std::int64_t assigned, std::int64_t expected) {
    return {"workHoursStartMinute",
            &S::workHoursStartMinute,
            &S::workHoursStartMinutePublisher,
            &S::setWorkHoursStartMinute,
            assigned,
            expected};
}

RangeCase workEnd(std::int64_t assigned, std::int64_t expected) {
    return {"workHoursEndMinute",
            &S::workHoursEndMinute,
            &S::workHoursEndMinutePublisher,
            &S::setWorkHoursEndMinute,
            assigned,
            expected};
}

RangeCase menuBarHorizon(std::int64_t assigned, std::int64_t expected) {
    return {"menuBarUpcomingHorizonMinutes",
            &S::menuBarUpcomingHorizonMinutes,
            &S::menuBarUpcomingHorizonMinutesPublisher,
            &S::setMenuBarUpcomingHorizonMinutes,
            assigned,
            expected};
}

RangeCase snooze(std::int64_t assigned, std::int64_t expected) {
    return {"snoozeDurationMinutes",
            &S::snoozeDurationMinutes,
            &S::snoozeDurationMinutesPublisher,
            &S::setSnoozeDurationMinutes,
            assigned,
            expected};
}

RangeCase autoClose(std::int64_t assigned, std::int64_t expected) {
    return {"autoCloseSeconds",
            &S::autoCloseSeconds,
            &S::autoCloseSecondsPublisher,
            &S::setAutoCloseSeconds,
            assigned,
            expected};
}

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Bounds, RangeTest,
    testing::Values(leadTime(-5, 0), leadTime(-1, 0), leadTime(0, 0), leadTime(300, 300),
                    leadTime(301, 300), leadTime(lowest, 0), leadTime(highest, 300),
                    workStart(-1, 0), workStart(0, 0), workStart(1439, 1439), workStart(1440, 1439),
                    workEnd(-1, 0), workEnd(0, 0), workEnd(1439, 1439), workEnd(1440, 1439),
                    menuBarHorizon(10, 30), menuBarHorizon(29, 30), menuBarHorizon(30, 30),
                    menuBarHorizon(480, 480), menuBarHorizon(481, 480), menuBarHorizon(1000, 480),
                    snooze(0, 1), snooze(1, 1), snooze(15, 15), snooze(16, 15), snooze(20, 15),
                    autoClose(-1, 0), autoClose(0, 0), autoClose(3600, 3600), autoClose(3601, 3600),
                    autoClose(5000, 3600)));

TEST_F(PreferencesAssignTest, AllowsAnEndOfWorkBeforeItsStart) {
    store.setWorkHoursStartMinute(1320);
    store.setWorkHoursEndMinute(360);
    EXPECT_EQ(store.workHoursStartMinute(), 1320);
    EXPECT_EQ(store.workHoursEndMinute(), 360);
}

TEST_F(PreferencesAssignTest, WritesEachMemberAtOnceInItsForm) {
    store.setSelectedCalendarIDs({QStringLiteral("b"), QStringLiteral("a")});
    store.setJoinTarget(JoinTarget::defaultBrowser);
    store.setIsPaused(true);
    store.setWorkHoursEnabled(true);
    store.setWorkHoursWeekdays({1, 7});
    store.setShowNextMeetingInMenuBar(false);
    store.setShortcutOnJoin(QStringLiteral("Focus “now”"));
    store.setSelectedTheme(Theme::alpineDawn);

    EXPECT_EQ(stored("selectedCalendarIDs"), (QJsonArray{QLatin1String("a"), QLatin1String("b")}));
    EXPECT_EQ(stored("joinTarget"), QJsonValue(QLatin1String("defaultBrowser")));
    EXPECT_EQ(stored("isPaused"), QJsonValue(true));
    EXPECT_EQ(stored("workHoursEnabled"), QJsonValue(true));
    EXPECT_EQ(stored("workHoursWeekdays"), (QJsonArray{1, 7}));
    EXPECT_EQ(stored("showNextMeetingInMenuBar"), QJsonValue(false));
    EXPECT_EQ(stored("shortcutOnJoin"), QJsonValue(QStringLiteral("Focus “now”")));
    EXPECT_EQ(stored("selectedTheme"), QJsonValue(QLatin1String("alpineDawn")));
    EXPECT_EQ(defaults.writes.size(), 8u);

    const PreferencesStore reloaded(defaults);
    EXPECT_EQ(reloaded.selectedCalendarIDs(), store.selectedCalendarIDs());
    EXPECT_EQ(reloaded.joinTarget(), JoinTarget::defaultBrowser);
    EXPECT_TRUE(reloaded.isPaused());
    EXPECT_TRUE(reloaded.workHoursEnabled());
    EXPECT_EQ(reloaded.workHoursWeekdays(), (std::set<std::int64_t>{1, 7}));
    EXPECT_FALSE(reloaded.showNextMeetingInMenuBar());
    EXPECT_EQ(reloaded.shortcutOnJoin(), store.shortcutOnJoin());
    EXPECT_EQ(reloaded.selectedTheme(), Theme::alpineDawn);
}

TEST_F(PreferencesAssignTest, TogglesOneCalendarOfTheSelection) {
    store.setSelected(QStringLiteral("b"), true);
    store.setSelected(QStringLiteral("a"), true);
    store.setSelected(QStringLiteral("a"), true);
    EXPECT_EQ(stored("selectedCalendarIDs"), (QJsonArray{QLatin1String("a"), QLatin1String("b")}));
    store.setSelected(QStringLiteral("b"), false);
    EXPECT_EQ(store.selectedCalendarIDs(), std::set<QString>{QStringLiteral("a")});
    EXPECT_EQ(stored("selectedCalendarIDs"), QJsonArray{QLatin1String("a")});
    EXPECT_EQ(defaults.writes.size(), 4u);
}

TEST_F(PreferencesAssignTest, WritesAnEmptyArrayWhenAnAbsentCalendarIsDeselected) {
    store.setSelected(QStringLiteral("A"), false);
    EXPECT_EQ(stored("selectedCalendarIDs"), QJsonArray());
}

TEST_F(PreferencesAssignTest, AnnouncesTheStoreThenTheMemberThenStoresThenWrites) {
    std::vector<std::string> log;
    const auto state = [&](const char *what, const QString &member) {
        log.push_back(std::string(what) + " value " + std::to_string(store.leadTimeSeconds()) +
                      " writes " + std::to_string(defaults.writes.size()) + " " +
                      member.toStdString());
    };
    const auto whole = store.willChange.subscribe([&] { state("store", QString()); });
    const auto member = store.leadTimeSecondsPublisher().subscribe(
        [&](std::int64_t value) { state("member", QString::number(value)); });
    log.clear();
    store.setLeadTimeSeconds(301);
    EXPECT_EQ(log, (std::vector<std::string>{
                       "store value 60 writes 0 ", "member value 60 writes 0 301",
                       "store value 301 writes 0 ", "member value 301 writes 0 300"}));
    EXPECT_EQ(defaults.writes.size(), 1u);
}

TEST_F(PreferencesAssignTest, AnnouncesTheSelectionBeforeItIsStored) {
    std::vector<std::size_t> storedSizes;
    const auto member =
        store.selectedCalendarIDsPublisher().subscribe([&](const std::set<QString> &) {
            storedSizes.push_back(store.selectedCalendarIDs().size());
        });
    store.setSelected(QStringLiteral("a"), true);
    store.setSelected(QStringLiteral("b"), true);
    EXPECT_EQ(storedSizes, (std::vector<std::size_t>{0, 0, 1}));
}

TEST_F(PreferencesAssignTest, AnnouncesAnEqualValueAsWell) {
    int announcements = 0;
    const auto whole = store.willChange.subscribe([&] { ++announcements; });
    store.setIsPaused(false);
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(stored("isPaused"), QJsonValue(false));
}

TEST_F(PreferencesAssignTest, AnnouncesEachMemberToItsOwnSubscribersOnly) {
    int pauses = 0;
    const auto pause = store.isPausedPublisher().subscribe([&](bool) { ++pauses; });
    store.setWorkHoursEnabled(true);
    store.setSelectedTheme(Theme::dusk);
    EXPECT_EQ(pauses, 1);
}

TEST_F(PreferencesAssignTest, LetsASubscriberAssignAnotherMember) {
    const auto paused = store.isPausedPublisher().subscribe([&](bool isPaused) {
        if (isPaused)
            store.setWorkHoursEnabled(true);
    });
    store.setIsPaused(true);
    EXPECT_TRUE(store.isPaused());
    EXPECT_TRUE(store.workHoursEnabled());
    EXPECT_EQ(defaults.writes, (std::vector{key("workHoursEnabled"), key("isPaused")}));
}

TEST_F(PreferencesAssignTest, ClampsAValueThatWasLoadedBeyondItsRangeOnceItIsAssigned) {
    defaults.objects[key("leadTimeSeconds")] = 1000;
    PreferencesStore loaded(defaults);
    EXPECT_EQ(loaded.leadTimeSeconds(), 1000);
    loaded.setLeadTimeSeconds(loaded.leadTimeSeconds());
    EXPECT_EQ(loaded.leadTimeSeconds(), 300);
    EXPECT_EQ(stored("leadTimeSeconds"), QJsonValue(300));
}

TEST_F(PreferencesAssignTest, AcceptsItsOwnValueByReference) {
    store.setShortcutOnJoin(QStringLiteral("Focus"));
    store.setShortcutOnJoin(store.shortcutOnJoin());
    store.setWorkHoursWeekdays(store.workHoursWeekdays());
    store.setSelectedCalendarIDs(store.selectedCalendarIDs());
    EXPECT_EQ(store.shortcutOnJoin(), QStringLiteral("Focus"));
    EXPECT_EQ(stored("workHoursWeekdays"), (QJsonArray{2, 3, 4, 5, 6}));
}

} // namespace
} // namespace vantrel
