#include <linux/popup/PopupPlacement.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

const PopupArea panelAbove{{0, 0, 1000, 800}, {0, 30, 1000, 770}};
const PopupArea panelBeneath{{0, 0, 1000, 800}, {0, 0, 1000, 770}};
const PopupArea secondMonitor{{1000, 200, 1000, 800}, {1000, 200, 1000, 800}};
constexpr QSize size(360, 300);

QRect centred(const QRect &anchor, const PopupArea &area) {
    return placePopup({anchor}, size, area, Qt::LeftToRight);
}

TEST(PopupPlacementTest, PutsItBeneathTheMiddleOfTheAnchor) {
    EXPECT_EQ(centred({500, 4, 20, 22}, panelAbove), QRect(330, 30, 360, 300));
    EXPECT_EQ(centred({500, 100, 20, 20}, panelAbove), QRect(330, 124, 360, 300));
}

TEST(PopupPlacementTest, PutsItAboveWhereThereIsNoRoomBeneath) {
    EXPECT_EQ(centred({500, 774, 20, 22}, panelBeneath), QRect(330, 470, 360, 300));
    EXPECT_EQ(centred({500, 600, 20, 20}, panelBeneath), QRect(330, 296, 360, 300));
}

TEST(PopupPlacementTest, UsesTheLastPixelBeneath) {
    EXPECT_EQ(centred({500, 446, 20, 20}, panelBeneath).y(), 470);
    EXPECT_EQ(centred({500, 447, 20, 20}, panelBeneath).y(), 143);
}

TEST(PopupPlacementTest, KeepsItWithinTheScreenAtTheSides) {
    EXPECT_EQ(centred({980, 4, 20, 22}, panelAbove), QRect(640, 30, 360, 300));
    EXPECT_EQ(centred({0, 4, 20, 22}, panelAbove), QRect(0, 30, 360, 300));
    EXPECT_EQ(centred({1990, 990, 0, 0}, secondMonitor), QRect(1640, 686, 360, 300));
}

TEST(PopupPlacementTest, StartsWithThePointWhereItIsToLead) {
    const PopupPlace place{QRect(500, 100, 0, 0), PopupAlignment::leading};
    EXPECT_EQ(placePopup(place, size, panelAbove, Qt::LeftToRight), QRect(500, 100, 360, 300));
    EXPECT_EQ(placePopup(place, size, panelAbove, Qt::RightToLeft), QRect(140, 100, 360, 300));
}

TEST(PopupPlacementTest, TakesTheCornerWhereThePanelIsWithoutAnAnchor) {
    EXPECT_EQ(placePopup({}, size, panelAbove, Qt::LeftToRight), QRect(632, 38, 360, 300));
    EXPECT_EQ(placePopup({}, size, panelBeneath, Qt::LeftToRight), QRect(632, 462, 360, 300));
    EXPECT_EQ(placePopup({}, size, panelAbove, Qt::RightToLeft), QRect(8, 38, 360, 300));
    EXPECT_EQ(placePopup({}, size, secondMonitor, Qt::LeftToRight), QRect(1632, 208, 360, 300));
}

TEST(PopupPlacementTest, TakesTheCornerThatIsKnownToBeNearest) {
    PopupArea area = panelAbove;
    area.corner = Qt::TopLeftCorner;
    EXPECT_EQ(placePopup({}, size, area, Qt::LeftToRight), QRect(8, 38, 360, 300));
    area.corner = Qt::BottomRightCorner;
    EXPECT_EQ(placePopup({}, size, area, Qt::LeftToRight), QRect(632, 492, 360, 300));
}

constexpr QRect screen(1000, 200, 1000, 800);

TEST(PopupAreaTest, FindsThePanelAboveOrBeneathThatWasClicked) {
    const PopupArea above = areaAround(screen, {1000, 770}, QPoint(1900, 229));
    EXPECT_EQ(above.available, QRect(1000, 230, 1000, 770));
    EXPECT_EQ(above.corner, Qt::TopRightCorner);
    const PopupArea beneath = areaAround(screen, {1000, 770}, QPoint(1100, 970));
    EXPECT_EQ(beneath.available, QRect(1000, 200, 1000, 770));
    EXPECT_EQ(beneath.corner, Qt::BottomLeftCorner);
}

TEST(PopupAreaTest, FindsThePanelAtASideThatWasClicked) {
    const PopupArea left = areaAround(screen, {960, 800}, QPoint(1039, 900));
    EXPECT_EQ(left.available, QRect(1040, 200, 960, 800));
    EXPECT_EQ(left.corner, Qt::BottomLeftCorner);
    const PopupArea right = areaAround(screen, {960, 800}, QPoint(1960, 300));
    EXPECT_EQ(right.available, QRect(1000, 200, 960, 800));
    EXPECT_EQ(right.corner, Qt::TopRightCorner);
}

TEST(PopupAreaTest, LeavesEveryEdgeFreeForAPanelThatWasNotClicked) {
    for (const auto &click : {std::optional<QPoint>(), std::optional(QPoint(1500, 230)),
                              std::optional(QPoint(1500, 969))}) {
        const PopupArea area = areaAround(screen, {1000, 770}, click);
        EXPECT_EQ(area.available, QRect(1000, 230, 1000, 740));
        EXPECT_EQ(area.corner, std::nullopt);
    }
}

TEST(PopupAreaTest, IsTheWholeScreenWhereNoPanelTakesAnything) {
    const PopupArea area = areaAround(screen, screen.size(), QPoint(1000, 200));
    EXPECT_EQ(area.available, screen);
    EXPECT_EQ(area.corner, std::nullopt);
}

TEST(PopupPlacementTest, ShrinksWhatIsLargerThanTheScreen) {
    EXPECT_EQ(placePopup({QRect(500, 4, 20, 22)}, {2000, 2000}, panelAbove, Qt::LeftToRight),
              panelAbove.available);
}

} // namespace
} // namespace vantrel
