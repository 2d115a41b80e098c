#include <linux/eventstore/source/CalendarColors.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(CalendarColors, AreReadAsDigits) {
    EXPECT_EQ(colorFromText(QStringLiteral("#ff0080")), (Color{1.0, 0.0, 128.0 / 255.0, 1.0}));
    EXPECT_EQ(colorFromText(QStringLiteral(" #FF008000 ")), (Color{1.0, 0.0, 128.0 / 255.0, 0.0}));
}

TEST(CalendarColors, AreReadAsNames) {
    EXPECT_EQ(colorFromText(QStringLiteral("aliceblue")),
              (Color{240.0 / 255.0, 248.0 / 255.0, 1.0, 1.0}));
    EXPECT_EQ(colorFromText(QStringLiteral("YellowGreen")),
              (Color{154.0 / 255.0, 205.0 / 255.0, 50.0 / 255.0, 1.0}));
    EXPECT_EQ(colorFromText(QStringLiteral("red")), (Color{1.0, 0.0, 0.0, 1.0}));
}

TEST(CalendarColors, ThatCannotBeReadAreNone) {
    for (const char *text : {"", "#", "#12", "#12345", "#1234567", "#xyzxyz", "#+12345", "# 12345",
                             "ff0080", "reddish", "rgb(1,2,3)"})
        EXPECT_FALSE(colorFromText(QString::fromLatin1(text))) << text;
}

TEST(CalendarColors, AreGivenToCalendarsThatHaveNone) {
    EXPECT_EQ(defaultColor(QStringLiteral("a")), defaultColor(QStringLiteral("a")));
    int different = 0;
    for (int index = 0; index < 20; ++index)
        different +=
            defaultColor(QString::number(index)) == defaultColor(QStringLiteral("a")) ? 0 : 1;
    EXPECT_GT(different, 5);
}

} // namespace
} // namespace vantrel
