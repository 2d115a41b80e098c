#include <theme/SymbolPicture.h>

#include <QImage>

#include <gtest/gtest.h>

#include <string>

namespace vantrel {

namespace {

class SymbolTest : public testing::TestWithParam<const char *> {
protected:
    QString name = QLatin1String(GetParam());
};

/// The sizes that symbols are shown at, and those of a screen of twice the density.
constexpr int sides[] = {16, 20, 24, 32, 48, 96, 160};

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
    for (const int side : sides) {
        const QImage picture = symbolPicture(name, {side, side}, QColor(0xE8, 0xA0, 0x4C));
        ASSERT_EQ(picture.size(), QSize(side, side));
        // The thinnest is a single stroke.
        EXPECT_GT(ink(picture), name.endsWith(u"fill") ? 0.2 : 0.05) << side;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                if (pixel.alpha() == 255) {
                    ASSERT_EQ(pixel.name(), QStringLiteral("#e8a04c")) << side;
                }
            }
        }
    }
}

TEST_P(SymbolTest, KeepsItsShapeAtEverySize) {
    const double large = ink(symbolPicture(name, {480, 480}, Qt::black));
    // Where strokes meet on parts of a pixel, they are inked a little heavier.
    for (const int side : sides)
        EXPECT_NEAR(ink(symbolPicture(name, {side, side}, Qt::black)), large, 0.025) << side;
}

TEST_P(SymbolTest, LeavesTwoUnitsOfTheGridFreeOnEverySide) {
    // Ten pixels a unit; a round outline may pass the line by a tenth of a unit, where it looks
    // as large as a straight one.
    const QImage picture = symbolPicture(name, {240, 240}, Qt::black);
    const QRect within(19, 19, 202, 202);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (!within.contains(x, y)) {
                ASSERT_LT(picture.pixelColor(x, y).alpha(), 64) << x << ' ' << y;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Art, SymbolTest,
    testing::Values("arrow.counterclockwise", "arrow.triangle.2.circlepath", "bell.badge", "bell",
                    "calendar.badge.clock", "calendar", "checkmark.circle.fill",
                    "checkmark.seal.fill", "checkmark.shield", "chevron.down", "chevron.up",
                    "circle", "clock", "dot.radiowaves.up.forward", "exclamationmark.triangle.fill",
                    "folder", "gear", "gearshape.fill", "gift", "info.circle",
                    "line.3.horizontal.decrease.circle", "lock.shield", "menubar.rectangle",
                    "minus", "moon.zzz", "paintpalette", "pause.fill", "pawprint.fill", "pawprint",
                    "person.crop.circle", "play.fill", "plus", "power", "rectangle.inset.filled",
                    "shield", "video.fill"),
    [](const auto &row) {
        std::string name = row.param;
        std::erase(name, '.');
        return name;
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
