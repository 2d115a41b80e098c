#include <preferences/WorkHoursWords.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using ::testing::ElementsAre;

class WorkHoursWordsTest : public testing::Test {
protected:
    /// With plain spaces, where the language has narrow ones before "PM".
    QString words(int start, int end, const std::set<std::int64_t> &weekdays,
                  const char *locale = "en_US") const {
        return workHoursWords(start, end, weekdays,
                              {QTimeZone::utc(), QLocale(QString::fromLatin1(locale))})
            .replace(QChar(0x202f), u' ');
    }

    const std::set<std::int64_t> workdays{2, 3, 4, 5, 6};
};

TEST_F(WorkHoursWordsTest, TellOfAWindowWithinTheDay) {
    EXPECT_EQ(words(540, 1020, workdays),
              u"Monday to Friday: takeovers come from 9:00 AM to 5:00 PM.");
    EXPECT_EQ(words(0, 1439, {1}), u"Sunday: takeovers come from 12:00 AM to 11:59 PM.");
    EXPECT_EQ(words(540, 1020, workdays, "en_GB"),
              u"Monday to Friday: takeovers come from 09:00 to 17:00.");
}

TEST_F(WorkHoursWordsTest, TellOfAWindowThatPassesMidnight) {
    EXPECT_EQ(words(1320, 360, workdays),
              u"Monday to Friday: takeovers come until 6:00 AM, and again from 10:00 PM to "
              "midnight.");
    EXPECT_EQ(words(1320, 0, workdays),
              u"Monday to Friday: takeovers come from 10:00 PM to midnight.");
}

TEST_F(WorkHoursWordsTest, TellOfAWindowThatIsNone) {
    EXPECT_EQ(words(540, 540, workdays), u"It ends when it starts: Tobble stays quiet all day.");
    EXPECT_EQ(words(540, 1020, {}), u"No day is chosen: Tobble stays quiet all week.");
    EXPECT_EQ(words(540, 1020, {0, 8, 42}), u"No day is chosen: Tobble stays quiet all week.");
}

TEST_F(WorkHoursWordsTest, NameTheDaysAsThereAreMany) {
    const auto days = [this](const std::set<std::int64_t> &weekdays, const char *locale = "en_US") {
        return words(540, 1020, weekdays, locale).section(u':', 0, 0);
    };
    EXPECT_EQ(days({3}), u"Tuesday");
    EXPECT_EQ(days({2, 3}), u"Monday and Tuesday");
    EXPECT_EQ(days({2, 3, 4}), u"Monday to Wednesday");
    EXPECT_EQ(days({2, 4, 6}), u"Monday, Wednesday and Friday");
    EXPECT_EQ(days({1, 2, 3, 4, 5, 6, 7}), u"Every day");
    // Sunday is the first day of one week and the last of the other.
    EXPECT_EQ(days({1, 6, 7}), u"Sunday, Friday and Saturday");
    EXPECT_EQ(days({1, 6, 7}, "en_GB"), u"Friday to Sunday");
}

TEST_F(WorkHoursWordsTest, BeginTheWeekAsItsLanguageDoes) {
    EXPECT_THAT(weekdaysInOrder(QLocale(QStringLiteral("en_US"))),
                ElementsAre(1, 2, 3, 4, 5, 6, 7));
    EXPECT_THAT(weekdaysInOrder(QLocale(QStringLiteral("de_DE"))),
                ElementsAre(2, 3, 4, 5, 6, 7, 1));
    EXPECT_THAT(weekdaysInOrder(QLocale(QStringLiteral("ar_EG"))),
                ElementsAre(7, 1, 2, 3, 4, 5, 6));
}

} // namespace
} // namespace vantrel
