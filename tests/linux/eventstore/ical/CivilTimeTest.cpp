#include <linux/eventstore/ical/CivilTime.h>

#include <QByteArray>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(DateTimeText, IsReadAsDateLocalTimeOrUtc) {
    const auto date = parseDateTime("19700102");
    ASSERT_TRUE(date);
    EXPECT_TRUE(date->isDate);
    EXPECT_EQ(date->civil, secondsPerDay);
    const auto local = parseDateTime("19700101T010203");
    ASSERT_TRUE(local);
    EXPECT_FALSE(local->isDate);
    EXPECT_FALSE(local->isUtc);
    EXPECT_EQ(local->civil, 3723);
    const auto utc = parseDateTime(" 19691231T235959Z ");
    ASSERT_TRUE(utc);
    EXPECT_TRUE(utc->isUtc);
    EXPECT_EQ(utc->civil, -1);
}

TEST(DateTimeText, OfALeapSecondReadsAsTheSecondBefore) {
    EXPECT_EQ(parseDateTime("20161231T235960Z")->civil, parseDateTime("20161231T235959Z")->civil);
}

TEST(DateTimeText, ThatNoCalendarOrClockShowsIsRefused) {
    for (const char *text : {"",
                             "2026",
                             "20260229",
                             "20261301",
                             "20260001",
                             "20260100",
                             "20240132",
                             "00000101",
                             "2026-01-1",
                             "20260101T",
                             "20260101T240001",
                             "20260101T006000",
                             "20260101T000061",
                             "20260101T0000",
                             "20260101X000000",
                             "20260101T000000z0",
                             "20260101T000000+",
                             "+2026011",
                             "20260101T-10000",
                             "20241399T256161Z",
                             "\xD9\xA2\xD9\xA0\xD9\xA2\xD9\xA6"})
        EXPECT_FALSE(parseDateTime(QByteArrayView(text))) << text;
}

TEST(Duration, IsReadInWeeksDaysAndTime) {
    EXPECT_EQ(parseDuration("P7W"), (Span{49, 0}));
    EXPECT_EQ(parseDuration("P15DT5H0M20S"), (Span{15, 18020}));
    EXPECT_EQ(parseDuration("PT90M"), (Span{0, 5400}));
    EXPECT_EQ(parseDuration("+P1D"), (Span{1, 0}));
    EXPECT_EQ(parseDuration("P1DT"), (Span{1, 0}));
    EXPECT_EQ(parseDuration("PT0S"), (Span{0, 0}));
}

TEST(Duration, ThatIsNegativeEndlessOrNoneIsRefused) {
    for (const char *text : {"", "P", "PT", "-PT1H", "PT-1H", "P1H", "PT1D", "P1", "1D", "PTT1H",
                             "P99999W", "P99999999999999999999D", "PT999999999999S", "PX"})
        EXPECT_FALSE(parseDuration(QByteArrayView(text))) << text;
}

TEST(CivilText, IsTheFormOfICalendar) {
    EXPECT_EQ(civilText(parseDateTime("20260302T090507")->civil, false), "20260302T090507");
    EXPECT_EQ(civilText(parseDateTime("16040229")->civil, true), "16040229");
}

} // namespace
} // namespace vantrel
