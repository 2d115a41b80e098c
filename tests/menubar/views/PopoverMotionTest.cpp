#include "ShownView.h"

namespace vantrel {
namespace {

class PopoverMotionTest : public testing::Test, protected ShownPopoverView {
protected:
    /// The popover in a window that is not shown yet.
    void prepare(Motion motion) {
        add(QStringLiteral("Standup"), "2026-03-02T10:00:00", call);
        popover.viewModel.popoverDidShow();
        stage = std::make_unique<gallery::Stage>(content(motion), QSize(360, 220));
        list = stage->find(QStringLiteral("events"))->parentItem();
        QObject::connect(list, &QQuickItem::opacityChanged, &watch,
                         [this] { least = std::min(least, list->opacity()); });
    }

    [[nodiscard]] double top() const { return list->mapToScene(QPointF()).y(); }

    std::unique_ptr<gallery::Stage> stage;
    QQuickItem *list = nullptr;
    double least = 1.0;
    QObject watch; ///< Ends what is connected to it before the members above go.
};

} // namespace

TEST_F(PopoverMotionTest, ComesInEachTimeThatItIsShown) {
    prepare(Motion::full);
    const double place = top();
    for (int time = 0; time < 2; ++time) {
        least = 1.0;
        stage->show();
        EXPECT_TRUE(stage->waitFor([this] { return least < 1.0 && list->opacity() == 1.0; }));
        EXPECT_EQ(top(), place);
        stage->window().hide();
    }
}

TEST_F(PopoverMotionTest, IsReadableAtOnceAndThereWithinAQuarterOfASecond) {
    prepare(Motion::full);
    const auto *opening = stage->root().findChild<QObject *>(QStringLiteral("opening"));
    ASSERT_TRUE(opening);
    EXPECT_GE(opening->property("duration").toInt(), 120);
    EXPECT_LE(opening->property("duration").toInt(), 240);
    EXPECT_GE(opening->property("from").toDouble(), 0.25);
}

TEST_F(PopoverMotionTest, StandsStillWhereTheDesktopAsksForIt) {
    prepare(Motion::reduced);
    const double place = top();
    stage->show();
    stage->linger();
    EXPECT_EQ(least, 1.0);
    EXPECT_EQ(top(), place);
}

} // namespace vantrel
