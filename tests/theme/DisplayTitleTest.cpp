#include <theme/DisplayTitle.h>

#include <gtest/gtest.h>

#include <string>

namespace vantrel {

namespace {

struct Row {
    const char *circumstance;
    QString title;
    QString shown;
};

class DisplayTitleTest : public testing::TestWithParam<Row> {};

const QString familyOfFour = QStringLiteral("👨‍👩‍👧‍👦");

} // namespace

TEST_P(DisplayTitleTest, Shows) {
    EXPECT_EQ(displayTitle(GetParam().title), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Kept, DisplayTitleTest,
    testing::Values(
        Row{"Plain", QStringLiteral("Standup"), QStringLiteral("Standup")},
        Row{"Empty", QString(), QString()},
        Row{"Markup", QStringLiteral("<b>Budget</b> &amp; co"),
            QStringLiteral("<b>Budget</b> &amp; co")},
        Row{"TwoSpaces", QStringLiteral("a  b"), QStringLiteral("a  b")},
        Row{"Arabic", QStringLiteral("مراجعة"), QStringLiteral("مراجعة")},
        Row{"HebrewWithPoints", QStringLiteral("שָׁלוֹם"), QStringLiteral("שָׁלוֹם")},
        Row{"DirectionMarks", QStringLiteral("a\u200F(b)\u200E"),
            QStringLiteral("a\u200F(b)\u200E")},
        Row{"Isolates", QStringLiteral("\u2068a\u2069 b"), QStringLiteral("\u2068a\u2069 b")},
        Row{"JoinedEmoji", familyOfFour, familyOfFour},
        Row{"AccentedLetter", QStringLiteral("e\u0301te\u0301"), QStringLiteral("e\u0301te\u0301")},
        Row{"Devanagari", QStringLiteral("साप्ताहिक बैठक"), QStringLiteral("साप्ताहिक बैठक")}),
    [](const auto &row) { return std::string(row.param.circumstance); });

INSTANTIATE_TEST_SUITE_P(
    Tamed, DisplayTitleTest,
    testing::Values(
        Row{"Override", QStringLiteral("Pay \u202Efdp.exe\u202C now"),
            QStringLiteral("Pay fdp.exe now")},
        Row{"Embedding", QStringLiteral("\u202Ba\u202Ab"), QStringLiteral("ab")},
        Row{"LineBreaks", QStringLiteral("a\nb\r\nc"), QStringLiteral("a b  c")},
        Row{"Separators", QStringLiteral("a\u2028b\u2029c"), QStringLiteral("a b c")},
        Row{"Tab", QStringLiteral("a\tb"), QStringLiteral("a b")},
        Row{"Bell", QStringLiteral("a\u0007b"), QStringLiteral("a b")},
        Row{"Null", QStringLiteral("a") + QChar(0) + QStringLiteral("b"), QStringLiteral("a b")},
        Row{"EscapeSequence", QStringLiteral("\u001B[31mred"), QStringLiteral("[31mred")},
        Row{"SecondControls", QStringLiteral("a\u0085b\u009Bc"), QStringLiteral("a b c")},
        Row{"SpaceAround", QStringLiteral("  a \n"), QStringLiteral("a")},
        Row{"OnlyControls", QStringLiteral("\n\t \u202E"), QString()},
        Row{"LoneSurrogates",
            QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b") + QChar(0xDE00),
            QStringLiteral("a\uFFFDb\uFFFD")},
        Row{"HeapOfAccents",
            QStringLiteral("z") + QString(500, QChar(0x0301)) + QStringLiteral("algo"),
            QStringLiteral("z") + QString(6, QChar(0x0301)) + QStringLiteral("algo")}),
    [](const auto &row) { return std::string(row.param.circumstance); });

TEST(DisplayTitleTest, EndsFarTooLongOnesInAnEllipsis) {
    const QString shown = displayTitle(QString(1'000'000, QLatin1Char('x')));
    EXPECT_EQ(shown, QString(500, QLatin1Char('x')) + QChar(0x2026));
    EXPECT_EQ(displayTitle(QString(500, QLatin1Char('x'))), QString(500, QLatin1Char('x')));
}

TEST(DisplayTitleTest, CutsBetweenCharactersNotWithinOne) {
    const QString shown = displayTitle(QString(498, QLatin1Char('x')) + familyOfFour);
    EXPECT_EQ(shown, QString(498, QLatin1Char('x')) + QChar(0x2026));
}

} // namespace vantrel
