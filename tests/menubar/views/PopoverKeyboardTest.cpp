#include "ShownView.h"

namespace vantrel {
namespace {

class PopoverKeyboardTest : public testing::Test, protected ShownPopoverView {
protected:
    void SetUp() override {
        for (int hour = 10; hour < 23; ++hour)
            add(QString::number(hour), qPrintable(QStringLiteral("2026-03-02T%1:00:00").arg(hour)),
                hour % 2 ? QString() : call);
        make(EventListMode::today);
    }

    [[nodiscard]] int current() const { return item("events").property("currentIndex").toInt(); }

    [[nodiscard]] QString focused() const {
        const QQuickItem *with = stage().window().activeFocusItem();
        return with ? with->objectName() : QString();
    }

    void pressHeld(Qt::Key key) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&stage().window(), &repeated);
    }
};

} // namespace

TEST_F(PopoverKeyboardTest, StartsInTheListWithoutARow) {
    EXPECT_EQ(focused(), QStringLiteral("events"));
    EXPECT_EQ(current(), -1);
    press(Qt::Key_Return);
    EXPECT_TRUE(popover.joined.empty());
}

TEST_F(PopoverKeyboardTest, GoesThroughTheRows) {
    press(Qt::Key_Down);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), 1);
    press(Qt::Key_Up);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_Up);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(current(), 12);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), 12);
    press(Qt::Key_Home);
    EXPECT_EQ(current(), 0);
}

TEST_F(PopoverKeyboardTest, RingsTheRowAndBringsItIntoView) {
    press(Qt::Key_End);
    EXPECT_TRUE(stage().waitFor([this] {
        const auto rows = all("EventRow");
        return std::any_of(rows.begin(), rows.end(), [this](const QQuickItem *row) {
            return row->property("isRinged").toBool() &&
                   stage().root().boundingRect().contains(area(*row));
        });
    }));
}

TEST_F(PopoverKeyboardTest, BringsARowOutFromBeneathTheDayAtTheTop) {
    press(Qt::Key_End);
    double covered = 0.0;
    for (const QQuickItem *header : all("DayHeader"))
        covered = std::max(covered, header->height());
    ASSERT_GT(covered, 10.0);
    for (int row = 11; row > 0; --row) {
        press(Qt::Key_Up);
        EXPECT_TRUE(stage().waitFor([&] {
            const auto rows = all("EventRow");
            return std::any_of(rows.begin(), rows.end(), [&](const QQuickItem *one) {
                return one->property("isRinged").toBool() &&
                       area(*one).top() >= 49.0 + covered - 1.0 &&
                       area(*one).bottom() <= stage().root().height();
            });
        })) << row;
    }
}

TEST_F(PopoverKeyboardTest, JoinsWithReturnWhereThereIsACall) {
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_EQ(popover.joined.size(), 1u);
    EXPECT_EQ(popover.joined[0].title, QStringLiteral("10"));
    press(Qt::Key_Down);
    press(Qt::Key_Return); // 11 has no call.
    EXPECT_EQ(popover.joined.size(), 1u);
    press(Qt::Key_Down);
    press(Qt::Key_Enter);
    EXPECT_EQ(popover.joined.size(), 2u);
}

TEST_F(PopoverKeyboardTest, AKeyThatIsHeldFromElsewhereJoinsNothing) {
    press(Qt::Key_Down);
    pressHeld(Qt::Key_Return);
    pressHeld(Qt::Key_Enter);
    EXPECT_TRUE(popover.joined.empty());
}

TEST_F(PopoverKeyboardTest, TabGoesRoundTheControls) {
    QStringList order;
    for (int step = 0; step < 6; ++step) {
        order += focused();
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{QStringLiteral("events"), QStringLiteral("today"),
                                  QStringLiteral("all"), QStringLiteral("pause"),
                                  QStringLiteral("more"), QStringLiteral("event")}));
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), QStringLiteral("event"));
    EXPECT_TRUE(stage().window().activeFocusItem()->property("isRinged").toBool());
}

TEST_F(PopoverKeyboardTest, SpaceAndReturnPressWhatHasTheRing) {
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_EQ(popover.viewModel.mode(), EventListMode::all);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_TRUE(popover.preferences.isPaused());
    pressHeld(Qt::Key_Return);
    EXPECT_TRUE(popover.preferences.isPaused());
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    ASSERT_EQ(popover.menus.size(), 1u);
    const QRect gear(stage().window().mapToGlobal(area(item("more")).topLeft().toPoint()),
                     QSize(36, 36));
    EXPECT_TRUE(gear.contains(popover.menus[0]));
}

TEST_F(PopoverKeyboardTest, OpensTheMenuAtTheGearWhereverTheGearWasClickedBefore) {
    QQuickItem &gear = item("more");
    QTest::mouseClick(&stage().window(), Qt::LeftButton, Qt::NoModifier,
                      gear.mapToScene({4.0, 30.0}).toPoint());
    press(Qt::Key_M, Qt::AltModifier);
    QAccessible::queryAccessibleInterface(&gear)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    const QPoint corner = stage().window().mapToGlobal(area(gear).topLeft().toPoint());
    ASSERT_EQ(popover.menus.size(), 3u);
    EXPECT_EQ(popover.menus[0], corner + QPoint(4, 30));
    EXPECT_EQ(popover.menus[1], corner + QPoint(18, 18));
    EXPECT_EQ(popover.menus[2], corner + QPoint(18, 18));
}

TEST_F(PopoverKeyboardTest, HasMnemonics) {
    press(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(popover.viewModel.mode(), EventListMode::all);
    press(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(popover.viewModel.mode(), EventListMode::today);
    press(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(popover.preferences.isPaused());
    press(Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(popover.menus.size(), 1u);
}

TEST_F(PopoverKeyboardTest, AMnemonicThatIsHeldActsOnce) {
    for (const Qt::Key key : {Qt::Key_P, Qt::Key_M}) {
        press(key, Qt::AltModifier);
        for (int repetition = 0; repetition < 3; ++repetition)
            QTest::simulateEvent(&stage().window(), true, key, Qt::AltModifier, QString(), true);
    }
    EXPECT_TRUE(popover.preferences.isPaused());
    EXPECT_EQ(popover.menus.size(), 1u);
}

TEST_F(PopoverKeyboardTest, WorksWithoutAnyMeeting) {
    popover.store.storedEvents.clear();
    make(EventListMode::today);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("today"));
    press(Qt::Key_Down);
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_TRUE(popover.joined.empty());
}

} // namespace vantrel
