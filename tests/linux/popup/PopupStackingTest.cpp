#include "PopupTest.h"

namespace vantrel::tests {
namespace {

using Kind = OtherProgram::Kind;

/// A second popup on top of the first, as a menu lies on the window it belongs to.
class PopupStackingTest : public PopupTest {
protected:
    void SetUp() override {
        program().focus(former);
        lower = show(*popup, place);
        upper = show(*menu, {QRect(190, 60, 0, 0), PopupAlignment::leading});
        ASSERT_NE(lower, upper);
    }

    const xcb_window_t former = desktop.show(Kind::ordinary, QRect(20, 400, 100, 100), Qt::blue);
    int menuClosings = 0;
    std::unique_ptr<Popup> menu = makePopup(menuClosings);
    QPointer<QQuickWindow> lower;
    QPointer<QQuickWindow> upper;
};

INSTANTIATE_TEST_SUITE_P(WindowManager, PopupStackingTest, testing::Values("", "openbox"),
                         nameOfManager);

TEST_P(PopupStackingTest, LeavesTheLowerOneOpen) {
    EXPECT_TRUE(popup->isShown());
    EXPECT_EQ(upper->geometry(), QRect(190, 60, 200, 100));
    settle(*upper);
    EXPECT_TRUE(popup->isShown());
    EXPECT_TRUE(menu->isShown());
}

TEST_P(PopupStackingTest, EscapeClosesTheUpperOneAndTheLowerOneGetsTheKeys) {
    program().strikeKey(keycode::escape);
    EXPECT_TRUE(waitUntil([&] { return menuClosings == 1; }));
    EXPECT_TRUE(waitUntil([&] { return program().focused() == lower->winId(); }));
    program().strikeKey(keycode::a);
    EXPECT_TRUE(waitUntil([&] { return card(*lower).property("typed") == u"a"_qs; }));
    EXPECT_EQ(closings, 0);
    program().strikeKey(keycode::escape);
    EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
}

TEST_P(PopupStackingTest, AClickIntoTheLowerOneDoesNothingButCloseTheUpperOne) {
    const QPoint inLower = pixel(QPointF(lower->geometry().topLeft()) + QPointF(40, 8));
    program().click(inLower);
    EXPECT_TRUE(waitUntil([&] { return menuClosings == 1; }));
    EXPECT_TRUE(waitUntil([&] { return program().focused() == lower->winId(); }));
    EXPECT_EQ(card(*lower).property("clicks").toInt(), 0);
    settle(*lower);
    EXPECT_EQ(card(*lower).property("clicks").toInt(), 1);
    EXPECT_TRUE(popup->isShown());
}

TEST_P(PopupStackingTest, AClickElsewhereClosesBoth) {
    program().click({700, 500});
    EXPECT_TRUE(waitUntil([&] { return menuClosings == 1 && closings == 1; }));
}

TEST_P(PopupStackingTest, AnotherWindowThatGetsTheKeysKeepsThem) {
    const xcb_window_t other = desktop.show(Kind::ordinary, QRect(20, 400, 100, 100), Qt::red);
    program().focus(other);
    EXPECT_TRUE(waitUntil([&] { return menuClosings == 1 && closings == 1; }));
    EXPECT_EQ(program().focused(), other);
}

TEST_P(PopupStackingTest, ClosingTheLowerOneClosesTheUpperOne) {
    popup->close();
    EXPECT_EQ(menuClosings, 1);
    EXPECT_FALSE(menu->isShown());
    EXPECT_TRUE(waitUntil([&] { return program().focused() == former; }));
}

TEST_P(PopupStackingTest, TheLowerOneMayBeDestroyedFirst) {
    popup.reset();
    EXPECT_FALSE(menu->isShown());
    EXPECT_EQ(menuClosings, 1);
    EXPECT_TRUE(waitUntil([&] { return program().focused() == former; }));
}

TEST_P(PopupStackingTest, ShowingTheLowerOneAgainClosesTheUpperOne) {
    popup->show(place);
    EXPECT_EQ(menuClosings, 1);
    EXPECT_FALSE(menu->isShown());
    EXPECT_TRUE(popup->isShown());
    EXPECT_EQ(closings, 0);
    EXPECT_TRUE(waitUntil([&] { return program().focused() == lower->winId(); }));
    program().strikeKey(keycode::escape);
    EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
}

TEST_P(PopupStackingTest, TheLowerOneMayGoAsTheUpperOneTellsOfItsClosing) {
    menu = popups.makePopup({u"Popup.Tests"_qs, u"Card"_qs, {}}, {{}, [this] { popup.reset(); }});
    show(*menu, {QRect(190, 60, 0, 0), PopupAlignment::leading});
    popup->show(place);
    EXPECT_FALSE(popup);
    EXPECT_TRUE(waitUntil([&] { return program().focused() == former; }));
    popup = makePopup(closings);
    show(*popup, place);
    show(*menu, {QRect(190, 60, 0, 0), PopupAlignment::leading});
    popup->close();
    EXPECT_FALSE(popup);
    EXPECT_TRUE(waitUntil([&] { return program().focused() == former; }));
}

} // namespace
} // namespace vantrel::tests
