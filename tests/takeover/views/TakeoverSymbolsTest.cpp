#include "ShownView.h"

#include <gtest/gtest.h>

namespace vantrel {

namespace {

/// The symbols of that name that can be seen below the item.
QList<QQuickItem *> symbols(QQuickItem &root, const char *name) {
    QList<QQuickItem *> found;
    for (QQuickItem *item : gallery::withDescendants(root)) {
        if (item->isVisible() && item->property("name").toString() == QLatin1String(name))
            found.append(item);
    }
    return found;
}

/// How opaque the item is with all that it lies in.
double opacityOf(QQuickItem &item) {
    double opacity = 1.0;
    for (QQuickItem *each = &item; each; each = each->parentItem())
        opacity *= each->opacity();
    return opacity;
}

/// On a screen on which nothing is enlarged.
class TakeoverSymbolsTest : public testing::Test, protected ShownView {
protected:
    gallery::Stage &makeAtFullSize() {
        gallery::Stage &stage = make(Theme::hearth, {1600, 1080});
        stage.show();
        return stage;
    }

    const Palette hearth = palette(Theme::hearth);
};

} // namespace

TEST_F(TakeoverSymbolsTest, APawOfNinetySixPointsStandsInACircleOfAHundredAndSixty) {
    makeAtFullSize();
    EXPECT_EQ(item("hero").width(), 160.0);
    EXPECT_EQ(item("hero").height(), 160.0);
    const auto paws = symbols(item("hero"), "pawprint.fill");
    ASSERT_EQ(paws.size(), 1);
    // The silhouette fills 80 of the symbol's 96 units.
    EXPECT_NEAR(paws.front()->width() * 80 / 96, 96.0, 1.0);
    EXPECT_EQ(opacityOf(*paws.front()), 1.0);
}

TEST_F(TakeoverSymbolsTest, ABadgeStandsOnTheHeroOnceJoinedAndNotBefore) {
    gallery::Stage &stage = makeAtFullSize();
    EXPECT_TRUE(symbols(stage.root(), "checkmark.circle.fill").isEmpty());
    phaseState.phase.set(TakeoverPhase::joined);
    const auto badges = symbols(item("joinedFace"), "checkmark.circle.fill");
    ASSERT_EQ(badges.size(), 1);
    // The disc fills 20 of the symbol's 24 units.
    EXPECT_NEAR(badges.front()->width() * 20 / 24, 36.0, 1.0);
    EXPECT_EQ(symbols(item("joinedFace"), "pawprint.fill").size(), 1);
}

TEST_F(TakeoverSymbolsTest, TheLabelsOfTheQuietButtonsAreALittleTransparent) {
    makeAtFullSize();
    for (const char *button : {"snoozeButton", "dismissButton"}) {
        int labels = 0;
        for (QQuickItem *part : gallery::withDescendants(item(button))) {
            if (part == &item(button) ||
                part->property("text").toString() != item(button).property("text").toString())
                continue;
            ++labels;
            EXPECT_DOUBLE_EQ(opacityOf(*part), 0.85) << button;
        }
        EXPECT_EQ(labels, 1) << button;
    }
}

TEST_F(TakeoverSymbolsTest, ThePawOfTheEchoIsALittleTransparent) {
    gallery::Stage stage(takeoverEchoContent(QStringLiteral("Standup"), hearth), {1600, 1080});
    stage.show();
    const auto paws = symbols(stage.root(), "pawprint.fill");
    ASSERT_EQ(paws.size(), 1);
    EXPECT_DOUBLE_EQ(opacityOf(*paws.front()), 0.85);
    EXPECT_TRUE(symbols(stage.root(), "checkmark.circle.fill").isEmpty());
}

} // namespace vantrel
