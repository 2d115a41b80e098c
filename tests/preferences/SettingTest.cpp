#include <fakes/InMemoryUserDefaults.h>
#include <preferences/FlagSetting.h>
#include <preferences/NumberSetting.h>
#include <preferences/PreferencesStore.h>
#include <preferences/TimeSetting.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vantrel {
namespace {

class SettingTest : public testing::Test {
protected:
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences{defaults};
    LocalCalendar calendar{QTimeZone::utc(), QLocale(QStringLiteral("en_US"))};
    NumberSetting leadTime{
        preferences.leadTimeSecondsPublisher(),
        [this](std::int64_t seconds) { preferences.setLeadTimeSeconds(seconds); },
        [](std::int64_t seconds) { return QString::number(seconds); }};
    TimeSetting start{preferences.workHoursStartMinutePublisher(),
                      [this](std::int64_t minute) { preferences.setWorkHoursStartMinute(minute); },
                      [this] { return calendar; }};

    QString startText() const { return start.text().replace(QChar(0x202f), u' '); }
};

TEST_F(SettingTest, FollowsTheStoreAndTellsOfIt) {
    int changes = 0;
    QObject::connect(&leadTime, &NumberSetting::changed, [&changes] { ++changes; });
    preferences.setLeadTimeSeconds(180);
    EXPECT_EQ(leadTime.value(), 180.0);
    EXPECT_EQ(leadTime.text(), u"180");
    EXPECT_EQ(changes, 1);
}

TEST_F(SettingTest, EndsAtTheBoundThatTheStoreSets) {
    leadTime.assign(100000);
    EXPECT_EQ(leadTime.value(), 300.0);
    EXPECT_EQ(preferences.leadTimeSeconds(), 300);
}

TEST_F(SettingTest, TakesTheNextWholeNumber) {
    leadTime.assign(119.6);
    EXPECT_EQ(preferences.leadTimeSeconds(), 120);
}

TEST_F(SettingTest, StopsTheProgramAtAValueBeyondTheWholeNumbers) {
    EXPECT_DEATH(leadTime.assign(0x1p63), "beyond the whole numbers");
    EXPECT_DEATH(leadTime.assign(-0x1.8p63), "beyond the whole numbers");
    EXPECT_DEATH(leadTime.assign(std::numeric_limits<double>::infinity()),
                 "beyond the whole numbers");
    EXPECT_DEATH(leadTime.assign(std::nan("")), "beyond the whole numbers");
}

TEST_F(SettingTest, AFlagFollowsTheStoreAndWritesToIt) {
    FlagSetting workHours(preferences.workHoursEnabledPublisher(),
                          [this](bool isOn) { preferences.setWorkHoursEnabled(isOn); });
    EXPECT_FALSE(workHours.isOn());
    preferences.setWorkHoursEnabled(true);
    EXPECT_TRUE(workHours.isOn());
    workHours.assign(false);
    EXPECT_FALSE(preferences.workHoursEnabled());
}

TEST_F(SettingTest, ATimeReadsAsItsLanguageWritesIt) {
    EXPECT_EQ(startText(), u"9:00 AM");
    preferences.setWorkHoursStartMinute(1439);
    EXPECT_EQ(startText(), u"11:59 PM");
    calendar = LocalCalendar(QTimeZone("Europe/Zurich"), QLocale(QStringLiteral("de_CH")));
    EXPECT_EQ(startText(), u"23:59");
    calendar = LocalCalendar(QTimeZone::utc(), QLocale(QStringLiteral("en_US")),
                             ClockFormat::twentyFourHours);
    EXPECT_EQ(startText(), u"23:59");
}

TEST_F(SettingTest, ATimeIsTakenInEachWayOfWritingIt) {
    const std::pair<const char16_t *, int> times[] = {
        {u"10:30 PM", 1350}, {u"10:30\u202fPM", 1350}, {u" 7:05 am ", 425}, {u"8 PM", 1200},
        {u"22:30", 1350},    {u"2230", 1350},          {u"6", 360},         {u"0:00", 0},
        {u"23:59", 1439}};
    for (const auto &[written, minute] : times) {
        preferences.setWorkHoursStartMinute(1);
        EXPECT_TRUE(start.assignText(QString::fromUtf16(written)));
        EXPECT_EQ(preferences.workHoursStartMinute(), minute)
            << QString::fromUtf16(written).toStdString();
    }
}

TEST_F(SettingTest, WhatIsNoTimeChangesNothing) {
    for (const char16_t *written : {u"", u"noon", u"24:00", u"25", u"9:60", u"-1"}) {
        EXPECT_FALSE(start.assignText(QString::fromUtf16(written)))
            << QString::fromUtf16(written).toStdString();
        EXPECT_EQ(preferences.workHoursStartMinute(), 540);
    }
}

} // namespace
} // namespace vantrel
