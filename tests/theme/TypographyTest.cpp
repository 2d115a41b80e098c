#include <theme/Typography.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace vantrel {

namespace {

/// Sets the user's interface font for the length of a test.
class TypographyTest : public testing::Test {
protected:
    ~TypographyTest() override { QGuiApplication::setFont(m_before); }

    static void setUsersSize(int pixelSize) {
        QFont font = QGuiApplication::font();
        font.setPixelSize(pixelSize);
        QGuiApplication::setFont(font);
    }

private:
    QFont m_before = QGuiApplication::font();
};

} // namespace

TEST_F(TypographyTest, GrowsByAQuarterWithEachStepFromTheUsersSize) {
    setUsersSize(16);
    EXPECT_DOUBLE_EQ(Typography::size(0), 16.0);
    EXPECT_DOUBLE_EQ(Typography::size(1), 20.0);
    EXPECT_DOUBLE_EQ(Typography::size(2), 25.0);
    EXPECT_DOUBLE_EQ(Typography::size(-1), 12.8);
}

TEST_F(TypographyTest, FollowsWhenTheUserChangesTheSize) {
    setUsersSize(12);
    EXPECT_DOUBLE_EQ(Typography::size(0), 12.0);
    setUsersSize(20);
    EXPECT_DOUBLE_EQ(Typography::size(0), 20.0);
}

TEST_F(TypographyTest, TakesNoSizeThatNobodyCouldRead) {
    setUsersSize(2);
    EXPECT_DOUBLE_EQ(Typography::size(0), 9.0);
    setUsersSize(200);
    EXPECT_DOUBLE_EQ(Typography::size(0), 32.0);
}

TEST_F(TypographyTest, ReadsInTheInterfaceFont) {
    const QFont font = Typography::reading(20.4, QFont::Medium);
    EXPECT_EQ(font.families(), QGuiApplication::font().families());
    EXPECT_EQ(font.pixelSize(), 20);
    EXPECT_EQ(font.weight(), QFont::Medium);
}

TEST_F(TypographyTest, RoundsInQuicksandWhereItIsInstalledElseInTheInterfaceFont) {
    const QFont font = Typography::rounded(30, QFont::Bold);
    const bool isInstalled = QFontDatabase::hasFamily(QStringLiteral("Quicksand"));
    EXPECT_EQ(QFontInfo(font).family(),
              isInstalled ? QStringLiteral("Quicksand")
                          : QFontInfo(Typography::reading(30, QFont::Bold)).family());
    // What the rounded face has no letters for comes in the interface font.
    EXPECT_EQ(font.families().last(), QGuiApplication::font().families().last());
}

TEST_F(TypographyTest, RoundsInTheMediumWeightWhereItIsInstalled) {
    if (!QFontDatabase::hasFamily(QStringLiteral("Quicksand Medium")))
        GTEST_SKIP() << "Quicksand Medium is not installed";
    EXPECT_EQ(QFontInfo(Typography::rounded(30, QFont::Medium)).family(),
              QStringLiteral("Quicksand Medium"));
}

TEST_F(TypographyTest, MeasuresTheSpaceAtTheEnd) {
    const QFont font = Typography::rounded(30, QFont::Medium);
    EXPECT_GT(Typography::advance(font, QStringLiteral("in ")),
              Typography::advance(font, QStringLiteral("in")) + 3.0);
}

TEST_F(TypographyTest, GivesEachFigureRoomEnough) {
    const QFont font = Typography::rounded(100, QFont::Medium);
    for (const QChar figure : QStringLiteral("0123456789")) {
        const double ink = QFontMetricsF(font).tightBoundingRect(figure).width();
        EXPECT_LE(ink, Typography::figureAdvance(font)) << figure.toLatin1();
    }
}

} // namespace vantrel
