#include "ShownOnboarding.h"

#include <QAccessible>
#include <QFont>
#include <QGuiApplication>

#include <gmock/gmock.h>

namespace vantrel::tests {

using Step = OnboardingStep;

namespace {

class OnboardingKeyboardTest : public ShownOnboarding {
protected:
    void click(const char *objectName) {
        const QQuickItem *item = find(objectName);
        const QPointF middle(item->width() / 2, item->height() / 2);
        QTest::mouseClick(&stage->window(), Qt::LeftButton, {}, item->mapToScene(middle).toPoint());
    }

    [[nodiscard]] QString focused() const {
        return stage->window().activeFocusItem()->objectName();
    }
};

} // namespace

TEST_F(OnboardingKeyboardTest, ReturnGoesThroughAllOfIt) {
    allow();
    show();
    press(Qt::Key_Return);
    ASSERT_EQ(state.step(), Step::notifications);
    press(Qt::Key_Return);
    notifications.answer(NotificationPermission::Status::authorized);
    ASSERT_EQ(state.step(), Step::theme);
    press(Qt::Key_Return);
    ASSERT_EQ(state.step(), Step::demoTakeover);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    ASSERT_EQ(focused(), u"primary");
    press(Qt::Key_Return);
    ASSERT_EQ(state.step(), Step::launchAtLogin);
    press(Qt::Key_Return);
    EXPECT_EQ(finishings, 1);
}

TEST_F(OnboardingKeyboardTest, ReturnAsksForTheCalendarsAndGoesOnOnceTheyAreGranted) {
    showAt(Step::calendar);
    press(Qt::Key_Return);
    ASSERT_EQ(store.accessRequests.size(), 1u);
    EXPECT_FALSE(find("primary")->isEnabled());
    press(Qt::Key_Return);
    EXPECT_EQ(store.accessRequests.size(), 1u);
    EXPECT_EQ(state.step(), Step::calendar);
    allow();
    store.accessRequests.front()(true, std::nullopt);
    press(Qt::Key_Return);
    EXPECT_EQ(state.step(), Step::notifications);
}

TEST_F(OnboardingKeyboardTest, StaysAtTheCalendarsAfterARefusal) {
    showAt(Step::calendar);
    press(Qt::Key_Return);
    store.authorization = StoreAuthorization::denied;
    store.accessRequests.front()(false, std::nullopt);
    EXPECT_EQ(state.step(), Step::calendar);
    press(Qt::Key_Return);
    EXPECT_EQ(store.accessRequests.size(), 2u);
}

TEST_F(OnboardingKeyboardTest, LooksAfterTheCalendarsJustWhileTheStepIsShown) {
    showAt(Step::calendar);
    EXPECT_EQ(queue.pendingCount(), 1u);
    stage->window().hide();
    EXPECT_EQ(queue.pendingCount(), 0u);
    stage->show();
    EXPECT_EQ(queue.pendingCount(), 1u);
    state.advance();
    EXPECT_EQ(queue.pendingCount(), 0u);
}

TEST_F(OnboardingKeyboardTest, SkipsTheNotificationsWithoutAsking) {
    showAt(Step::notifications);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), u"skip");
    press(Qt::Key_Space);
    EXPECT_EQ(state.step(), Step::theme);
    EXPECT_TRUE(notifications.requests.empty());
}

TEST_F(OnboardingKeyboardTest, TheArrowsPickATheme) {
    showAt(Step::theme);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"theme0");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(preferences.selectedTheme(), Theme::dusk);
    EXPECT_EQ(focused(), u"theme3");
    press(Qt::Key_Up);
    EXPECT_EQ(preferences.selectedTheme(), Theme::alpineDawn);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"back");
}

TEST_F(OnboardingKeyboardTest, TheArrowsStopAtTheEndsOfTheThemes) {
    showAt(Step::theme);
    press(Qt::Key_Tab);
    press(Qt::Key_Up);
    EXPECT_EQ(preferences.selectedTheme(), Theme::hearth);
    for (int presses = 0; presses < 7; ++presses)
        press(Qt::Key_Down);
    EXPECT_EQ(preferences.selectedTheme(), Theme::chestnut);
}

TEST_F(OnboardingKeyboardTest, WhatGetsTheKeyboardComesIntoViewWhereTheTextIsLarge) {
    const QFont usual = QGuiApplication::font();
    QFont large = usual;
    large.setPixelSize(30);
    QGuiApplication::setFont(large);
    showAt(Step::theme);
    press(Qt::Key_Tab);
    for (int presses = 0; presses < 4; ++presses)
        press(Qt::Key_Down);
    const QQuickItem *row = find("theme4");
    const QRectF shown = row->mapRectToScene(row->boundingRect());
    EXPECT_GE(shown.top(), 0.0);
    EXPECT_LE(shown.bottom(), find("primary")->mapToScene(QPointF()).y());
    for (int presses = 0; presses < 4; ++presses)
        press(Qt::Key_Up);
    const QQuickItem *first = find("theme0");
    EXPECT_GE(first->mapToScene(QPointF()).y(),
              find("progress")->mapToScene(QPointF(0, find("progress")->height())).y());
    QGuiApplication::setFont(usual);
}

TEST_F(OnboardingKeyboardTest, SpaceThrowsTheSwitchForTheLogin) {
    showAt(Step::launchAtLogin);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"switch");
    press(Qt::Key_Space);
    EXPECT_TRUE(launchAtLogin.isEnabled());
    press(Qt::Key_Space);
    EXPECT_FALSE(launchAtLogin.isEnabled());
    EXPECT_EQ(loginItem.registrations, 1);
    EXPECT_EQ(loginItem.unregistrations, 1);
}

TEST_F(OnboardingKeyboardTest, GoesBackByKeyboard) {
    showAt(Step::calendar);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), u"back");
    press(Qt::Key_Space);
    EXPECT_EQ(state.step(), Step::welcome);
    EXPECT_EQ(focused(), u"primary");
}

TEST_F(OnboardingKeyboardTest, TheMouseDoesTheSame) {
    show();
    click("primary");
    EXPECT_EQ(state.step(), Step::calendar);
    click("back");
    EXPECT_EQ(state.step(), Step::welcome);
    state.advance();
    state.advance();
    click("skip");
    ASSERT_EQ(state.step(), Step::theme);
    click("theme4");
    EXPECT_EQ(preferences.selectedTheme(), Theme::chestnut);
    click("primary");
    click("show");
    EXPECT_EQ(previews, 1);
    click("primary");
    click("switch");
    EXPECT_TRUE(launchAtLogin.isEnabled());
    click("primary");
    EXPECT_EQ(finishings, 1);
}

TEST_F(OnboardingKeyboardTest, AKeyThatIsHeldDownGoesOneStep) {
    show();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
    QCoreApplication::sendEvent(&stage->window(), &held);
    EXPECT_EQ(state.step(), Step::welcome);
}

TEST_F(OnboardingKeyboardTest, TellsAScreenReaderWhatIsWhat) {
    showAt(Step::theme);
    QStringList radios;
    for (QQuickItem *item : gallery::withDescendants(stage->root())) {
        const QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(item);
        if (reader && reader->role() == QAccessible::RadioButton) {
            radios.append(reader->text(QAccessible::Name) +
                          (reader->state().checked ? QStringLiteral("*") : QString()));
        }
    }
    EXPECT_EQ(radios, QStringList({QStringLiteral("Hearth*"), QStringLiteral("Summit"),
                                   QStringLiteral("Alpine Dawn"), QStringLiteral("Dusk"),
                                   QStringLiteral("Chestnut")}));
    const QAccessibleInterface *progress = QAccessible::queryAccessibleInterface(find("progress"));
    EXPECT_EQ(progress->role(), QAccessible::ProgressBar);
    EXPECT_EQ(progress->text(QAccessible::Name), u"Step 4 of 6");
    const QAccessibleInterface *primary = QAccessible::queryAccessibleInterface(find("primary"));
    EXPECT_EQ(primary->role(), QAccessible::Button);
    EXPECT_EQ(primary->text(QAccessible::Name), u"Continue");
}

} // namespace vantrel::tests
