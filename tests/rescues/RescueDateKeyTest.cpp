#include <fakes/Times.h>
#include <rescues/RescueDateKey.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

QString keyOf(const char *instant, const char *zone) {
    return RescueDateKey::formatter(calendarIn(zone)).string(at(instant));
}

TEST(RescueDateKey, NamesTheDayInTheZoneOfTheCalendar) {
    EXPECT_EQ(keyOf("2026-03-02T23:30:00", "UTC"), QStringLiteral("2026-03-02"));
    EXPECT_EQ(keyOf("2026-03-02T23:30:00", "Asia/Tokyo"), QStringLiteral("2026-03-03"));
    EXPECT_EQ(keyOf("2026-03-02T00:30:00", "America/New_York"), QStringLiteral("2026-03-01"));
}

TEST(RescueDateKey, ChangesAtLocalMidnight) {
    EXPECT_EQ(keyOf("2026-03-01T22:59:59.999", "Europe/Zurich"), QStringLiteral("2026-03-01"));
    EXPECT_EQ(keyOf("2026-03-01T23:00:00", "Europe/Zurich"), QStringLiteral("2026-03-02"));
}

TEST(RescueDateKey, PadsEveryPart) {
    EXPECT_EQ(keyOf("0987-01-05T12:00:00", "UTC"), QStringLiteral("0987-01-05"));
}

class RescueDateKeyLocaleTest : public testing::TestWithParam<const char *> {};

TEST_P(RescueDateKeyLocaleTest, IsGregorianInAsciiDigits) {
    const QLocale locale{QString::fromLatin1(GetParam())};
    const QLocale before;
    QLocale::setDefault(locale);
    const LocalCalendar calendar(QTimeZone("Asia/Riyadh"), locale);
    EXPECT_EQ(RescueDateKey::formatter(calendar).string(at("2026-03-02T09:00:00")),
              QStringLiteral("2026-03-02"));
    QLocale::setDefault(before);
}

INSTANTIATE_TEST_SUITE_P(Locales, RescueDateKeyLocaleTest,
                         testing::Values("ar_SA", "ar_EG", "fa_IR", "th_TH", "hi_IN", "bn_BD",
                                         "de_DE"));

} // namespace
} // namespace vantrel
