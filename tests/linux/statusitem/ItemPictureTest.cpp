#include "PlainArt.h"

#include <linux/statusitem/IconPixmap.h>
#include <linux/statusitem/ItemPicture.h>

#include <gtest/gtest.h>

namespace vantrel::tests {

namespace {

ItemLook withDot(const Color &dot) {
    return {QStringLiteral("pawprint"),
            QStringLiteral("Vantrel"),
            StatusTitle{dot, QStringLiteral("Stand-up")},
            {}};
}

} // namespace

TEST(ItemPictureTest, IsTheSymbolAloneWithoutATitle) {
    ItemLook look = withDot({});
    look.title.reset();
    const QImage picture = itemPicture(look, 22, Qt::white, plainArt());
    EXPECT_EQ(picture.pixelColor(21, 21), QColor(Qt::white));
}

class DotTest : public testing::TestWithParam<int> {};

TEST_P(DotTest, TouchesTheCornersEdgesOnWholePixelsWithAGapAround) {
    const int side = GetParam();
    const QImage picture = itemPicture(withDot({0.0, 0.0, 1.0, 1.0}), side, Qt::white, plainArt());
    const int diameter = qMax(5, qRound(side * 0.4));
    const int middle = side - diameter / 2 - 1;
    EXPECT_EQ(picture.pixelColor(middle, middle), QColor(Qt::blue));
    EXPECT_GT(picture.pixelColor(middle, side - 1).alpha(), 128);
    EXPECT_GT(picture.pixelColor(side - 1, middle).alpha(), 128);
    EXPECT_LT(picture.pixelColor(side - 1, side - 1).alpha(), 64);
    EXPECT_LT(picture.pixelColor(middle, side - diameter - 1).alpha(), 128);
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(0, side - 1), QColor(Qt::white));
}

INSTANTIATE_TEST_SUITE_P(Sides, DotTest, testing::Values(16, 22, 24, 32, 48, 64));

TEST(IconPixmapTest, HoldsAlphaRedGreenBlueInThisOrderNotPremultiplied) {
    QImage picture(2, 1, QImage::Format_ARGB32_Premultiplied);
    picture.setPixelColor(0, 0, QColor(0x11, 0x22, 0x33));
    picture.setPixelColor(1, 0, QColor(0xff, 0, 0, 0x80));
    const IconPixmap pixmap = IconPixmap::of(picture);
    EXPECT_EQ(pixmap.width, 2);
    EXPECT_EQ(pixmap.height, 1);
    EXPECT_EQ(pixmap.pixels.toHex(), "ff11223380ff0000");
}

TEST(IconPixmapTest, TakesComponentsBeyondTheirRangeForTheNearest) {
    EXPECT_EQ(toQColor({2.0, -1.0, 0.5, 1.0}).name(), QStringLiteral("#ff0080"));
}

} // namespace vantrel::tests
