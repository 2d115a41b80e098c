#include <takeover/CountdownFormatter.h>

#include <gtest/gtest.h>

#include <string>

namespace vantrel {

namespace {

struct Row {
    const char *circumstance;
    double secondsLeft;
    const char16_t *text;
};

class CountdownFormatterTest : public testing::TestWithParam<Row> {};

} // namespace

TEST_P(CountdownFormatterTest, Reads) {
    // A whole number of seconds, so that nothing is lost when the fraction is added.
    const Instant from = referenceDate + Seconds{790'000'000.0};
    EXPECT_EQ(
        CountdownFormatter::minutesAndSecondsString(from + Seconds{GetParam().secondsLeft}, from),
        QString::fromUtf16(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Table, CountdownFormatterTest,
    testing::Values(Row{"RoundsUp", 58.2, u"0:59"}, Row{"FractionIsASecond", 0.4, u"0:01"},
                    Row{"Past", -12.0, u"0:00"}, Row{"JustPast", -0.4, u"0:00"},
                    Row{"Zero", 0.0, u"0:00"}, Row{"WholeSeconds", 58.0, u"0:58"},
                    Row{"OneSecond", 1.0, u"0:01"}, Row{"TwoDigitsOfSeconds", 9.0, u"0:09"},
                    Row{"JustOverASecond", 1.001, u"0:02"}, Row{"OneMinute", 60.0, u"1:00"},
                    Row{"RoundsUpToTheMinute", 59.2, u"1:00"},
                    Row{"JustUnderAMinute", 59.0, u"0:59"}, Row{"TenMinutes", 600.0, u"10:00"},
                    Row{"NoHours", 3600.0, u"60:00"}, Row{"AlmostTwoHours", 7199.0, u"119:59"},
                    Row{"LongAgo", -1e9, u"0:00"}, Row{"FarAhead", 1e12, u"16666666666:40"}),
    [](const auto &row) { return std::string(row.param.circumstance); });

} // namespace vantrel
