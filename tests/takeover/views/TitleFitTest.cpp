#include <takeover/TitleFit.h>
#include <theme/Typography.h>

#include <gtest/gtest.h>

namespace vantrel {

namespace {

constexpr int fullSize = 60;
constexpr int smallest = 19;
constexpr double width = 900.0;
constexpr double widest = 1200.0;

TitleFit fit(const QString &title) {
    return TitleFitter::fit(title, Typography::rounded(fullSize, QFont::Bold), smallest, width,
                            widest);
}

QString words(int count) {
    return QStringLiteral("planning ").repeated(count).trimmed();
}

} // namespace

TEST(TitleFitTest, KeepsOneLineAtItsFullSizeAndWidth) {
    EXPECT_EQ(fit(QStringLiteral("Standup")), (TitleFit{fullSize, width, false}));
}

TEST(TitleFitTest, KeepsTwoLinesAtFullSizeAndSetsThemEvenly) {
    const TitleFit two = fit(words(4));
    EXPECT_EQ(two.pixelSize, fullSize);
    // Two words a line.
    const double twoWords =
        Typography::advance(Typography::rounded(fullSize, QFont::Bold), words(2));
    EXPECT_NEAR(two.width, twoWords, 0.08 * twoWords);
}

TEST(TitleFitTest, WidensTheLinesBeforeItShrinksTheText) {
    const QString title = words(8);
    const TitleFit fitted = fit(title);
    EXPECT_EQ(fitted.pixelSize, fullSize);
    EXPECT_GT(fitted.width, width);
    EXPECT_LE(fitted.width, widest);
}

TEST(TitleFitTest, ShrinksWhatTakesMoreThanTwoLines) {
    const TitleFit fitted = fit(words(16));
    EXPECT_LT(fitted.pixelSize, fullSize);
    EXPECT_GT(fitted.pixelSize, smallest);
    EXPECT_LE(fitted.width, widest);
    EXPECT_FALSE(fitted.isCut);
}

TEST(TitleFitTest, ShrinksFurtherTheLongerTheTextIs) {
    int before = fullSize;
    for (const int count : {14, 22, 34}) {
        const int size = fit(words(count)).pixelSize;
        EXPECT_LT(size, before);
        before = size;
    }
}

TEST(TitleFitTest, FitsThreeHundredCharactersWhole) {
    EXPECT_FALSE(fit(words(34).first(300)).isCut);
}

TEST(TitleFitTest, FitsOneWordOfAHundredAndTwentyCharacters) {
    EXPECT_FALSE(fit(QString(120, QLatin1Char('m'))).isCut);
}

TEST(TitleFitTest, SaysWhenEvenTheSmallestSizeIsTooLarge) {
    const TitleFit fitted = fit(words(100));
    EXPECT_TRUE(fitted.isCut);
    EXPECT_EQ(fitted.pixelSize, smallest);
    EXPECT_EQ(fitted.width, widest);
}

TEST(TitleFitTest, TakesWhatItGetsWithoutATitleOrARoom) {
    EXPECT_EQ(fit(QString()), (TitleFit{fullSize, width, false}));
    const QFont font = Typography::rounded(fullSize, QFont::Bold);
    EXPECT_EQ(TitleFitter::fit(words(9), font, smallest, 0.0, 0.0).pixelSize, fullSize);
}

} // namespace vantrel
