#include <fakes/Times.h>

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

TEST(LocalCalendar, ReadsHourMinuteAndWeekdayInItsOwnZone) {
    const Instant sundayEvening = at("2026-03-01T23:30:00");
    EXPECT_EQ(calendarIn("UTC").hour(sundayEvening), 23);
    EXPECT_EQ(calendarIn("UTC").weekday(sundayEvening), 1);
    EXPECT_EQ(calendarIn("Asia/Kolkata").hour(sundayEvening), 5);
    EXPECT_EQ(calendarIn("Asia/Kolkata").minuteOfDay(sundayEvening), 5 * 60);
    EXPECT_EQ(calendarIn("Asia/Kolkata").weekday(sundayEvening), 2);
}

TEST(LocalCalendar, NumbersWeekdaysFromSundayToSaturday) {
    const LocalCalendar calendar = calendarIn();
    const Instant sunday = at("2026-03-01T12:00:00");
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(calendar.weekday(sunday + std::chrono::days(day)), day + 1);
}

TEST(LocalCalendar, CountsDaysByTheCalendarOverADaylightSavingChange) {
    const LocalCalendar calendar = calendarIn("Europe/Zurich");
    const Instant saturday = at("2026-03-28T15:00:00", "Europe/Zurich");
    EXPECT_EQ(calendar.startOfDay(saturday), at("2026-03-28T00:00:00", "Europe/Zurich"));
    EXPECT_EQ(calendar.startOfDay(saturday, 2), at("2026-03-30T00:00:00", "Europe/Zurich"));
    EXPECT_EQ(calendar.startOfDay(saturday, 2) - calendar.startOfDay(saturday),
              std::chrono::hours(47));
}

TEST(LocalCalendar, BeginsADayWithoutMidnightAtItsFirstInstant) {
    const LocalCalendar calendar = calendarIn("America/Santiago");
    const Instant noon = at("2025-09-07T12:00:00", "America/Santiago");
    EXPECT_EQ(calendar.startOfDay(noon), at("2025-09-07T04:00:00"));
    EXPECT_EQ(calendar.hour(calendar.startOfDay(noon)), 1);
}

TEST(LocalCalendar, CountsDaysBetweenTwoInstantsByTheCalendar) {
    const LocalCalendar calendar = calendarIn();
    const Instant lateOnMonday = at("2026-03-02T23:59:59");
    EXPECT_EQ(calendar.daysBetween(lateOnMonday, at("2026-03-02T00:00:00")), 0);
    EXPECT_EQ(calendar.daysBetween(lateOnMonday, at("2026-03-03T00:00:00")), 1);
    EXPECT_EQ(calendar.daysBetween(lateOnMonday, at("2026-03-09T12:00:00")), 7);
    EXPECT_EQ(calendar.daysBetween(lateOnMonday, at("2026-03-01T23:59:59")), -1);
}

TEST(LocalCalendar, CountsDaysBetweenOverDaylightSavingChangesAndDaysWithoutMidnight) {
    const LocalCalendar zurich = calendarIn("Europe/Zurich");
    EXPECT_EQ(zurich.daysBetween(at("2026-03-28T23:30:00", "Europe/Zurich"),
                                 at("2026-03-30T00:15:00", "Europe/Zurich")),
              2);
    EXPECT_EQ(zurich.daysBetween(at("2026-10-24T00:00:00", "Europe/Zurich"),
                                 at("2026-10-26T00:00:00", "Europe/Zurich")),
              2);
    const LocalCalendar santiago = calendarIn("America/Santiago");
    const Instant saturday = at("2025-09-06T23:59:00", "America/Santiago");
    EXPECT_EQ(santiago.daysBetween(saturday, santiago.startOfDay(saturday, 1)), 1);
}

// Texts. The space before AM and PM is a narrow one that does not break.

LocalCalendar calendarOf(const char *locale, const char *zone = "UTC") {
    return LocalCalendar(QTimeZone(zone), QLocale(QString::fromLatin1(locale)));
}

const Instant wednesday = at("2026-03-04T15:05:00");

TEST(LocalCalendar, WritesEnglish) {
    const LocalCalendar calendar = calendarOf("en_US");
    EXPECT_EQ(calendar.weekdayName(wednesday), u"Wednesday");
    EXPECT_EQ(calendar.mediumDate(wednesday), u"Mar 4, 2026");
    EXPECT_EQ(calendar.shortTime(wednesday), u"3:05\u202FPM");
    EXPECT_EQ(calendarOf("en_GB").mediumDate(wednesday), u"4 Mar 2026");
    EXPECT_EQ(calendarOf("en_GB").shortTime(wednesday), u"15:05");
}

TEST(LocalCalendar, WritesGerman) {
    const LocalCalendar calendar = calendarOf("de_DE");
    EXPECT_EQ(calendar.weekdayName(wednesday), u"Mittwoch");
    EXPECT_EQ(calendar.mediumDate(wednesday), u"04.03.2026");
    EXPECT_EQ(calendar.shortTime(wednesday), u"15:05");
}

TEST(LocalCalendar, WritesArabicInTheFiguresOfTheCountry) {
    const LocalCalendar egypt = calendarOf("ar_EG");
    EXPECT_EQ(egypt.weekdayName(wednesday), u"الأربعاء");
    EXPECT_EQ(egypt.mediumDate(wednesday), u"٠٤\u200F/٠٣\u200F/٢٠٢٦");
    EXPECT_EQ(egypt.shortTime(wednesday), u"٣:٠٥ م");
    EXPECT_EQ(calendarOf("ar_MA").shortTime(wednesday), u"15:05");
}

TEST(LocalCalendar, WritesJapanese) {
    const LocalCalendar calendar = calendarOf("ja_JP");
    EXPECT_EQ(calendar.weekdayName(wednesday), u"水曜日");
    EXPECT_EQ(calendar.mediumDate(wednesday), u"2026/03/04");
    EXPECT_EQ(calendar.shortTime(wednesday), u"15:05");
}

TEST(LocalCalendar, WritesGregorianYearsWhereOthersAreCustomary) {
    EXPECT_EQ(calendarOf("th_TH").mediumDate(wednesday), u"4 มี.ค. 2026");
    EXPECT_EQ(calendarOf("fa_IR").mediumDate(wednesday), u"۴ مارس ۲۰۲۶");
}

TEST(LocalCalendar, WritesAClockOf24HoursForAProgramWithoutALocale) {
    const LocalCalendar calendar = calendarOf("C");
    EXPECT_EQ(calendar.weekdayName(wednesday), u"Wednesday");
    EXPECT_EQ(calendar.mediumDate(wednesday), u"4 Mar 2026");
    EXPECT_EQ(calendar.shortTime(wednesday), u"15:05");
}

TEST(LocalCalendar, WritesWhatTheClockOnTheWallShows) {
    EXPECT_EQ(calendarOf("en_GB", "Asia/Kolkata").shortTime(wednesday), u"20:35");
    EXPECT_EQ(calendarOf("en_GB", "Pacific/Auckland").weekdayName(wednesday), u"Thursday");
    EXPECT_EQ(calendarOf("en_GB", "Pacific/Auckland").mediumDate(wednesday), u"5 Mar 2026");
    EXPECT_EQ(calendarOf("en_GB", "UTC-05:30").shortTime(wednesday), u"09:35");
    // One minute before the clock goes on to summer time, and at that very moment.
    const LocalCalendar zurich = calendarOf("en_GB", "Europe/Zurich");
    EXPECT_EQ(zurich.shortTime(at("2026-03-29T00:59:00")), u"01:59");
    EXPECT_EQ(zurich.shortTime(at("2026-03-29T01:00:00")), u"03:00");
    const LocalCalendar santiago = calendarOf("en_GB", "America/Santiago");
    const Instant dayWithoutMidnight = santiago.startOfDay(at("2025-09-07T12:00:00"));
    EXPECT_EQ(santiago.shortTime(dayWithoutMidnight), u"01:00");
    EXPECT_EQ(santiago.weekdayName(dayWithoutMidnight), u"Sunday");
}

class SystemLocaleTest : public testing::Test {
protected:
    SystemLocaleTest() { setAll(nullptr, nullptr, nullptr); }
    ~SystemLocaleTest() override {
        for (const auto &[name, value] : m_before)
            set(name, value);
    }
    SystemLocaleTest(const SystemLocaleTest &) = delete;
    SystemLocaleTest &operator=(const SystemLocaleTest &) = delete;

    static void setAll(const char *all, const char *time, const char *language) {
        set("LC_ALL", all);
        set("LC_TIME", time);
        set("LANG", language);
    }

    /// By the calendar of a program that has set no locale of its own.
    static QString time() {
        EXPECT_EQ(LocalCalendar(QTimeZone::utc(), QLocale::system()).shortTime(wednesday),
                  LocalCalendar(QTimeZone::utc(), QLocale()).shortTime(wednesday));
        return LocalCalendar(QTimeZone::utc(), QLocale()).shortTime(wednesday);
    }

private:
    /// A null value takes the variable away.
    static void set(const char *name, const QByteArray &value) {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }

    const std::vector<std::pair<const char *, QByteArray>> m_before{
        {"LC_ALL", qgetenv("LC_ALL")}, {"LC_TIME", qgetenv("LC_TIME")}, {"LANG", qgetenv("LANG")}};
};

TEST_F(SystemLocaleTest, WritesTimesInTheLocaleThatIsSetForThem) {
    setAll(nullptr, "de_DE.UTF-8", "en_US.UTF-8");
    EXPECT_EQ(time(), u"15:05");
    setAll(nullptr, "en_US.UTF-8", "de_DE.UTF-8");
    EXPECT_EQ(time(), u"3:05\u202FPM");
    setAll("de_DE.UTF-8", "en_US.UTF-8", "en_US.UTF-8");
    EXPECT_EQ(time(), u"15:05");
    setAll("", "", "en_US.UTF-8");
    EXPECT_EQ(time(), u"3:05\u202FPM");
    setAll(nullptr, nullptr, nullptr);
    EXPECT_EQ(time(), u"15:05");
}

TEST(LocalCalendar, TellsTheTimeByTheClockThatIsChosenWhateverTheLocaleHas) {
    const auto afternoon = [](const char *locale, ClockFormat clock) {
        return LocalCalendar(QTimeZone::utc(), QLocale(QString::fromLatin1(locale)), clock)
            .shortTime(wednesday);
    };
    EXPECT_EQ(afternoon("en_US", ClockFormat::twentyFourHours), u"15:05");
    EXPECT_EQ(afternoon("en_US", ClockFormat::twelveHours),
              afternoon("en_US", ClockFormat::ofLocale));
    EXPECT_EQ(afternoon("de_DE", ClockFormat::twelveHours), u"3:05\u202fPM");
    EXPECT_EQ(afternoon("de_DE", ClockFormat::twentyFourHours), u"15:05");
    EXPECT_EQ(afternoon("ko_KR", ClockFormat::twentyFourHours), u"15:05");
    EXPECT_EQ(afternoon("en_US", ClockFormat::twelveHours), u"3:05\u202fPM");
    EXPECT_EQ(afternoon("ko_KR", ClockFormat::twelveHours), u"오후 3:05");
}

TEST(LocalCalendar, RoundsAFractionOfAMillisecondDown) {
    const Instant almostNine = at("2026-03-02T09:00:00") - Seconds{0.0005};
    EXPECT_EQ(calendarIn().hour(almostNine), 8);
    EXPECT_EQ(calendarIn().minuteOfDay(almostNine), 9 * 60 - 1);
}

} // namespace
} // namespace vantrel
