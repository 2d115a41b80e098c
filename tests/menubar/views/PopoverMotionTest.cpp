#include "ShownView.h"

#include <QWheelEvent>

#include <set>

namespace vantrel {
namespace {

class PopoverMotionTest : public testing::Test, protected ShownPopoverView {
protected:
    /// The popover in a window that is not shown yet.
    void prepare(Motion motion) {
        for (int hour = 10; hour < 23; ++hour)
            add(QString::number(hour), qPrintable(QStringLiteral("2026-03-02T%1:00:00").arg(hour)),
                call);
        popover.viewModel.popoverDidShow();
        stage = std::make_unique<gallery::Stage>(content(motion), QSize(360, 220));
        list = stage->find(QStringLiteral("events"))->parentItem();
        QObject::connect(list, &QQuickItem::opacityChanged, &watch,
                         [this] { least = std::min(least, list->opacity()); });
    }

    /// The values of an item's opacity from now on, but for this one.
    void follow(QQuickItem &item) {
        opacities.clear();
        QObject::connect(&item, &QQuickItem::opacityChanged, &watch,
                         [this, &item] { opacities.insert(item.opacity()); });
    }

    void turnWheel() {
        const QPointF middle(180.0, 150.0);
        QWheelEvent down(middle, stage->window().mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&stage->window(), &down);
    }

    [[nodiscard]] double top() const { return list->mapToScene(QPointF()).y(); }

    std::unique_ptr<gallery::Stage> stage;
    QQuickItem *list = nullptr;
    double least = 1.0;
    std::set<double> opacities;
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

TEST_F(PopoverMotionTest, GoesToARowAtOnceWhereTheDesktopAsksForIt) {
    prepare(Motion::reduced);
    stage->show();
    const QQuickItem *events = stage->find(QStringLiteral("events"));
    const auto place = [events] { return events->property("contentY").toDouble(); };
    const double before = place();
    for (int row = 0; row < 8; ++row)
        QTest::keyClick(&stage->window(), Qt::Key_Down);
    ASSERT_TRUE(stage->waitFor([&] { return place() != before; }));
    const double atOnce = place();
    EXPECT_GT(atOnce, 100.0);
    stage->linger();
    EXPECT_EQ(place(), atOnce);
}

TEST_F(PopoverMotionTest, TheScrollBarDoesNotFadeWhereTheDesktopAsksForIt) {
    prepare(Motion::reduced);
    stage->show();
    QQuickItem *bar = stage->find(QStringLiteral("scrollBar"));
    ASSERT_TRUE(bar);
    const double resting = bar->opacity();
    follow(*bar);
    turnWheel();
    EXPECT_TRUE(stage->waitFor([&] { return opacities.contains(resting); }));
    EXPECT_EQ(opacities.size(), 2u);
    EXPECT_GT(*opacities.rbegin(), resting);
}

TEST_F(PopoverMotionTest, AHintIsThereFromOneFrameToTheNext) {
    prepare(Motion::full);
    stage->show();
    const QQuickItem *gear = stage->find(QStringLiteral("more"));
    QTest::mouseMove(&stage->window(), gear->mapToScene({18.0, 18.0}).toPoint());
    QQuickItem *hint = nullptr;
    ASSERT_TRUE(stage->waitFor([&] {
        const auto items = gallery::withDescendants(*stage->window().contentItem());
        for (QQuickItem *item : items)
            hint = item->objectName() == QLatin1String("hint") ? item : hint;
        return hint != nullptr;
    }));
    follow(*hint);
    EXPECT_TRUE(stage->waitFor([&] { return opacities.contains(1.0); }));
    opacities.erase(0.0);
    EXPECT_EQ(opacities.size(), 1u);
}

} // namespace vantrel
