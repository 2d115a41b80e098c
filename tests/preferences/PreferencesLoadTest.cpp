#include <fakes/InMemoryUserDefaults.h>
#include <preferences/PreferencesStore.h>

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

class PreferencesLoadTest : public testing::Test {
protected:
    void put(const char *member, const QJsonValue &value) {
        defaults.objects[QStringLiteral("Vantrel.") + QLatin1String(member)] = value;
    }

    fakes::InMemoryUserDefaults defaults;
};

TEST_F(PreferencesLoadTest, GivesTheDefaultsForAnEmptyDomain) {
    const PreferencesStore store(defaults);
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

TEST_F(PreferencesLoadTest, ReadsEveryMemberUnderItsKey) {
    put("selectedCalendarIDs",
        QJsonArray{QLatin1String("b"), QLatin1String("a"), QLatin1String("b")});
    put("leadTimeSeconds", 120);
    put("joinTarget", QLatin1String("defaultBrowser"));
    put("isPaused", true);
    put("workHoursEnabled", true);
    put("workHoursStartMinute", 480);
    put("workHoursEndMinute", 1080);
    put("workHoursWeekdays", QJsonArray{1, 1, 7});
    put("showNextMeetingInMenuBar", false);
    put("menuBarUpcomingHorizonMinutes", 240);
    put("shortcutOnJoin", QLatin1String("Focus"));
    put("selectedTheme", QLatin1String("dusk"));
    put("snoozeDurationMinutes", 5);
    put("autoCloseSeconds", 0);
    const PreferencesStore store(defaults);
    EXPECT_EQ(store.selectedCalendarIDs(),
              (std::set<QString>{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(store.leadTimeSeconds(), 120);
    EXPECT_EQ(store.joinTarget(), JoinTarget::defaultBrowser);
    EXPECT_TRUE(store.isPaused());
    EXPECT_TRUE(store.workHoursEnabled());
    EXPECT_EQ(store.workHoursStartMinute(), 480);
    EXPECT_EQ(store.workHoursEndMinute(), 1080);
    EXPECT_EQ(store.workHoursWeekdays(), (std::set<std::int64_t>{1, 7}));
    EXPECT_FALSE(store.showNextMeetingInMenuBar());
    EXPECT_EQ(store.menuBarUpcomingHorizonMinutes(), 240);
    EXPECT_EQ(store.shortcutOnJoin(), QStringLiteral("Focus"));
    EXPECT_EQ(store.selectedTheme(), Theme::dusk);
    EXPECT_EQ(store.snoozeDurationMinutes(), 5);
    EXPECT_EQ(store.autoCloseSeconds(), 0);
}

TEST_F(PreferencesLoadTest, WritesNothing) {
    put("leadTimeSeconds", 1000);
    const PreferencesStore store(defaults);
    EXPECT_TRUE(defaults.writes.empty());
}

struct IntegerMember {
    const char *name;
    std::int64_t (PreferencesStore::*value)() const;
    std::int64_t defaultValue;
    std::int64_t upperBound;
};

class IntegerLoadTest : public PreferencesLoadTest,
                        public testing::WithParamInterface<IntegerMember> {
protected:
    std::int64_t loaded(const QJsonValue &stored) {
        put(GetParam().name, stored);
        return (PreferencesStore(defaults).*GetParam().value)();
    }
};

TEST_P(IntegerLoadTest, GivesTheDefaultForAMissingKeyOnly) {
    EXPECT_EQ((PreferencesStore(defaults).*GetParam().value)(), GetParam().defaultValue);
    EXPECT_EQ(loaded(0), 0);
}

TEST_P(IntegerLoadTest, ReadsWhatIsNoNumberAsZero) {
    EXPECT_EQ(loaded(QLatin1String("abc")), 0);
    EXPECT_EQ(loaded(QJsonValue::Null), 0);
    EXPECT_EQ(loaded(QJsonArray{60}), 0);
    EXPECT_EQ(loaded(QJsonObject()), 0);
}

TEST_P(IntegerLoadTest, KeepsWhatLiesBeyondTheRange) {
    EXPECT_EQ(loaded(-5), -5);
    EXPECT_EQ(loaded(static_cast<qint64>(GetParam().upperBound + 700)),
              GetParam().upperBound + 700);
}

INSTANTIATE_TEST_SUITE_P(
    AllIntegers, IntegerLoadTest,
    testing::Values(
        IntegerMember{"leadTimeSeconds", &PreferencesStore::leadTimeSeconds, 60, 300},
        IntegerMember{"workHoursStartMinute", &PreferencesStore::workHoursStartMinute, 540, 1439},
        IntegerMember{"workHoursEndMinute", &PreferencesStore::workHoursEndMinute, 1020, 1439},
        IntegerMember{"menuBarUpcomingHorizonMinutes",
                      &PreferencesStore::menuBarUpcomingHorizonMinutes, 120, 480},
        IntegerMember{"snoozeDurationMinutes", &PreferencesStore::snoozeDurationMinutes, 1, 15},
        IntegerMember{"autoCloseSeconds", &PreferencesStore::autoCloseSeconds, 900, 3600}),
    [](const auto &member) { return std::string(member.param.name); });

TEST_F(PreferencesLoadTest, ReadsShowNextMeetingAsFalseWhenAnythingButABooleanStandsThere) {
    put("showNextMeetingInMenuBar", QLatin1String("yes"));
    EXPECT_FALSE(PreferencesStore(defaults).showNextMeetingInMenuBar());
    put("showNextMeetingInMenuBar", 1);
    EXPECT_TRUE(PreferencesStore(defaults).showNextMeetingInMenuBar());
}

TEST_F(PreferencesLoadTest, ReadsMistypedSwitchesAsOff) {
    put("isPaused", QLatin1String("true"));
    put("workHoursEnabled", QJsonArray{true});
    const PreferencesStore store(defaults);
    EXPECT_FALSE(store.isPaused());
    EXPECT_FALSE(store.workHoursEnabled());
}

TEST_F(PreferencesLoadTest, DropsAWholeArrayForOneWrongElement) {
    put("workHoursWeekdays", QJsonArray{2, QLatin1String("x"), 4});
    put("selectedCalendarIDs", QJsonArray{QLatin1String("a"), 1});
    const PreferencesStore store(defaults);
    EXPECT_EQ(store.workHoursWeekdays(), (std::set<std::int64_t>{2, 3, 4, 5, 6}));
    EXPECT_EQ(store.selectedCalendarIDs(), std::set<QString>{});
}

TEST_F(PreferencesLoadTest, TakesAnEmptyArrayAsNoWorkDays) {
    put("workHoursWeekdays", QJsonArray{});
    EXPECT_EQ(PreferencesStore(defaults).workHoursWeekdays(), std::set<std::int64_t>{});
}

TEST_F(PreferencesLoadTest, KeepsWeekdaysThatDoNotExist) {
    put("workHoursWeekdays", QJsonArray{0, 8});
    EXPECT_EQ(PreferencesStore(defaults).workHoursWeekdays(), (std::set<std::int64_t>{0, 8}));
}

TEST_F(PreferencesLoadTest, FallsBackForSomethingElseThanAnArray) {
    put("workHoursWeekdays", 2);
    put("selectedCalendarIDs", QLatin1String("a"));
    const PreferencesStore store(defaults);
    EXPECT_EQ(store.workHoursWeekdays(), (std::set<std::int64_t>{2, 3, 4, 5, 6}));
    EXPECT_EQ(store.selectedCalendarIDs(), std::set<QString>{});
}

struct ThemeCase {
    const char *rawValue;
    Theme expected;
};

class ThemeLoadTest : public PreferencesLoadTest, public testing::WithParamInterface<ThemeCase> {};

TEST_P(ThemeLoadTest, MatchesTheRawValueExactly) {
    put("selectedTheme", QLatin1String(GetParam().rawValue));
    EXPECT_EQ(PreferencesStore(defaults).selectedTheme(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    AllThemes, ThemeLoadTest,
    testing::Values(ThemeCase{"hearth", Theme::hearth}, ThemeCase{"summit", Theme::summit},
                    ThemeCase{"alpineDawn", Theme::alpineDawn}, ThemeCase{"dusk", Theme::dusk},
                    ThemeCase{"chestnut", Theme::chestnut}, ThemeCase{"Dusk", Theme::hearth},
                    ThemeCase{" dusk", Theme::hearth}, ThemeCase{"", Theme::hearth}));

struct JoinTargetCase {
    const char *rawValue;
    JoinTarget expected;
};

class JoinTargetLoadTest : public PreferencesLoadTest,
                           public testing::WithParamInterface<JoinTargetCase> {};

TEST_P(JoinTargetLoadTest, MatchesTheRawValueExactly) {
    put("joinTarget", QLatin1String(GetParam().rawValue));
    EXPECT_EQ(PreferencesStore(defaults).joinTarget(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    AllTargets, JoinTargetLoadTest,
    testing::Values(JoinTargetCase{"appWhenInstalled", JoinTarget::appWhenInstalled},
                    JoinTargetCase{"defaultBrowser", JoinTarget::defaultBrowser},
                    JoinTargetCase{"browser", JoinTarget::appWhenInstalled},
                    JoinTargetCase{"DefaultBrowser", JoinTarget::appWhenInstalled}));

TEST_F(PreferencesLoadTest, FallsBackForStringsThatAreNone) {
    put("selectedTheme", 3);
    put("joinTarget", true);
    put("shortcutOnJoin", 7);
    const PreferencesStore store(defaults);
    EXPECT_EQ(store.selectedTheme(), Theme::hearth);
    EXPECT_EQ(store.joinTarget(), JoinTarget::appWhenInstalled);
    EXPECT_EQ(store.shortcutOnJoin(), QString());
}

} // namespace
} // namespace vantrel
