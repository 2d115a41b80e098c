#include <theme/SymbolPicture.h>

#include <QImage>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace vantrel {

namespace {

using Row = std::tuple<const char *, int>;

class SymbolTest : public testing::TestWithParam<Row> {
protected:
    QString name = QLatin1String(std::get<0>(GetParam()));
    int side = std::get<1>(GetParam());
};

/// The share of the picture that is inked, from 0 to 1; partly covered pixels count in part.
double ink(const QImage &picture) {
    double sum = 0.0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            sum += picture.pixelColor(x, y).alphaF();
    }
    return sum / (picture.width() * picture.height());
}

} // namespace

TEST_P(SymbolTest, IsDrawnInTheOneColor) {
    const QImage picture = symbolPicture(name, {side, side}, QColor(0xE8, 0xA0, 0x4C));
    ASSERT_EQ(picture.size(), QSize(side, side));
    EXPECT_GT(ink(picture), name.endsWith(u"fill") ? 0.2 : 0.1);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (pixel.alpha() == 255) {
                EXPECT_EQ(pixel.name(), QStringLiteral("#e8a04c"));
            }
        }
    }
}

TEST_P(SymbolTest, KeepsItsShapeAtEverySize) {
    const double large = ink(symbolPicture(name, {480, 480}, Qt::black));
    EXPECT_NEAR(ink(symbolPicture(name, {side, side}, Qt::black)), large, 0.01);
}

TEST_P(SymbolTest, StaysWithinItsFrame) {
    const QImage picture = symbolPicture(name, {side, side}, Qt::black);
    for (int at = 0; at < side; ++at) {
        EXPECT_EQ(picture.pixelColor(at, 0).alpha(), 0);
        EXPECT_EQ(picture.pixelColor(0, at).alpha(), 0);
        EXPECT_EQ(picture.pixelColor(at, side - 1).alpha(), 0);
        EXPECT_EQ(picture.pixelColor(side - 1, at).alpha(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Art, SymbolTest,
    testing::Combine(testing::Values("pawprint.fill", "pawprint", "checkmark.circle.fill",
                                     "pause.fill", "play.fill", "gearshape.fill", "moon.zzz",
                                     "video.fill", "arrow.triangle.2.circlepath"),
                     testing::Values(16, 20, 24, 32, 48, 96, 160)),
    [](const auto &row) {
        std::string name = std::get<0>(row.param);
        std::erase(name, '.');
        return name + std::to_string(std::get<1>(row.param));
    });

TEST(SymbolPictureTest, IsHalfTransparentInAHalfTransparentColor) {
    QColor color(Qt::black);
    color.setAlphaF(0.25F);
    const QImage picture = symbolPicture(QStringLiteral("pawprint.fill"), {96, 96}, color);
    EXPECT_NEAR(picture.pixelColor(48, 70).alphaF(), 0.25, 0.01);
}

TEST(SymbolPictureTest, LetsTheGroundShowThroughTheCheckMark) {
    const QImage picture =
        symbolPicture(QStringLiteral("checkmark.circle.fill"), {96, 96}, Qt::black);
    EXPECT_EQ(picture.pixelColor(42, 59).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(48, 20).alpha(), 255);
}

TEST(SymbolPictureTest, ShowsThePawHollowWithinTheSilhouetteOfTheFullOne) {
    const QImage outline = symbolPicture(QStringLiteral("pawprint"), {96, 96}, Qt::black);
    const QImage full = symbolPicture(QStringLiteral("pawprint.fill"), {96, 96}, Qt::black);
    EXPECT_EQ(outline.pixelColor(48, 65).alpha(), 0);
    EXPECT_LT(ink(outline), 0.65 * ink(full));
    for (int y = 0; y < 96; ++y) {
        for (int x = 0; x < 96; ++x)
            EXPECT_LE(outline.pixelColor(x, y).alpha(), full.pixelColor(x, y).alpha() + 2);
    }
}

TEST(SymbolPictureTest, FitsIntoAFrameThatIsNotSquare) {
    const QImage picture = symbolPicture(QStringLiteral("pawprint.fill"), {192, 96}, Qt::black);
    EXPECT_EQ(picture.pixelColor(20, 48).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(96, 70).alpha(), 255);
}

TEST(SymbolPictureTest, IsEmptyForANameThatIsNoSymbols) {
    EXPECT_EQ(ink(symbolPicture(QStringLiteral("../secret"), {24, 24}, Qt::black)), 0.0);
}

TEST(SymbolDrawingTest, IsTheSourceOfASymbolAndEmptyForAnyOtherName) {
    EXPECT_TRUE(symbolDrawing(QStringLiteral("pawprint")).startsWith("<svg "));
    EXPECT_EQ(symbolDrawing(QStringLiteral("../secret")), QByteArray());
}

} // namespace vantrel
