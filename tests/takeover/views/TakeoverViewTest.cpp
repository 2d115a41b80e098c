#include "ShownView.h"

#include <QAccessible>
#include <QTest>

#include <gtest/gtest.h>

namespace vantrel {

namespace {

using PrimaryAction = TakeoverContext::PrimaryAction;

QStringList accessibleNames(QAccessibleInterface *root) {
    QStringList names;
    for (int index = 0; root && index < root->childCount(); ++index) {
        QAccessibleInterface *child = root->child(index);
        if (child->state().invisible)
            continue;
        names += child->text(QAccessible::Name);
        names += accessibleNames(child);
    }
    names.removeAll(QString());
    return names;
}

class TakeoverViewTest : public testing::Test, protected ShownView {
protected:
    void click(const char *objectName) {
        QQuickItem &button = item(objectName);
        const QPointF middle(button.width() / 2.0, button.height() / 2.0);
        QTest::mouseClick(button.window(), Qt::LeftButton, Qt::NoModifier,
                          button.mapToScene(middle).toPoint());
    }

    bool isSeen(const char *objectName) const {
        const QQuickItem &seen = item(objectName);
        return seen.isVisible() && seen.height() > 0;
    }
};

} // namespace

// The urgent face

TEST_F(TakeoverViewTest, NamesTheMeetingAndCountsDown) {
    make();
    EXPECT_EQ(textOf("title"), QStringLiteral("Standup"));
    EXPECT_EQ(textOf("countdown"), QStringLiteral("starts in 1:00"));
    EXPECT_EQ(textOf("copyLine"), QStringLiteral("Back to it."));
    queue.advance(Seconds{1.0});
    EXPECT_EQ(textOf("countdown"), QStringLiteral("starts in 0:59"));
    queue.advance(Seconds{59.0});
    EXPECT_EQ(textOf("countdown"), QStringLiteral("rolling now"));
    queue.advance(Seconds{1800.0});
    EXPECT_EQ(textOf("countdown"), QStringLiteral("wrapped up"));
}

TEST_F(TakeoverViewTest, DrawsEveryPartOfTheCountdown) {
    gallery::Stage &stage = make();
    const auto drawn = [&] {
        QString text;
        const auto items = gallery::withDescendants(item("countdown"));
        for (const QQuickItem *one : items) {
            if (one->inherits("QQuickText") && one->isVisible())
                text += one->property("text").toString();
        }
        return text;
    };
    stage.show();
    EXPECT_EQ(drawn(), QStringLiteral("starts in 1:00"));
    queue.advance(Seconds{11.0});
    EXPECT_EQ(drawn(), QStringLiteral("starts in 0:49"));
    queue.advance(Seconds{49.0});
    EXPECT_EQ(drawn(), QStringLiteral("rolling now"));
}

TEST_F(TakeoverViewTest, KeepsTheCountdownWhereItIsWhileFiguresChange) {
    make();
    const double left = item("countdown").mapToScene({}).x();
    const double width = item("countdown").width();
    for (int second = 1; second < 60; ++second) {
        queue.advance(Seconds{1.0});
        ASSERT_DOUBLE_EQ(item("countdown").width(), width) << second;
        ASSERT_DOUBLE_EQ(item("countdown").mapToScene({}).x(), left) << second;
    }
}

TEST_F(TakeoverViewTest, ShowsMarkupAsItIs) {
    context.title = QStringLiteral("<b>Budget</b> <img src=\"http://127.0.0.1:9/x.png\"> &amp;");
    context.copyLine = QStringLiteral("<i>x</i>");
    make();
    EXPECT_EQ(textOf("title"), context.title);
    const auto items = gallery::withDescendants(item("urgentFace"));
    int texts = 0;
    for (const QQuickItem *one : items) {
        if (one->inherits("QQuickText")) {
            ++texts;
            EXPECT_EQ(one->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
        }
    }
    EXPECT_GE(texts, 7);
}

TEST_F(TakeoverViewTest, LeavesNoGapWithoutACopyLine) {
    make();
    const double withLine = item("urgentFace").height();
    const double lineHeight = item("copyLine").height();
    ASSERT_GT(lineHeight, 10.0);
    context.copyLine.reset();
    make();
    EXPECT_FALSE(isSeen("copyLine"));
    EXPECT_DOUBLE_EQ(item("urgentFace").height(), withLine - lineHeight);
}

TEST_F(TakeoverViewTest, LeavesNoGapWithoutATitle) {
    make();
    const double withTitle = item("urgentFace").height();
    const double titleHeight = item("title").height();
    context.title.clear();
    make();
    EXPECT_FALSE(isSeen("title"));
    EXPECT_LT(item("urgentFace").height(), withTitle - titleHeight + 1);
}

TEST_F(TakeoverViewTest, LabelsThePrimaryButtonAfterTheAction) {
    const auto labelOf = [&](PrimaryAction action) {
        context.primaryAction = std::move(action);
        make();
        return textOf("primaryButton");
    };
    EXPECT_EQ(labelOf(PrimaryAction::join(MeetingLink::phone(QStringLiteral("1")))),
              QStringLiteral("Join"));
    EXPECT_EQ(labelOf(PrimaryAction::call(QStringLiteral("1"))), QStringLiteral("Call"));
    EXPECT_EQ(labelOf(PrimaryAction::headingOver()), QStringLiteral("Heading over"));
    EXPECT_EQ(labelOf(PrimaryAction::acknowledge()), QStringLiteral("Got it"));
}

TEST_F(TakeoverViewTest, NamesTheKeysOfTheQuietButtons) {
    make();
    EXPECT_EQ(textOf("snoozeButton"), QStringLiteral("Snooze"));
    EXPECT_EQ(item("snoozeButton").property("keyLabel").toString(), QStringLiteral("S"));
    EXPECT_EQ(textOf("dismissButton"), QStringLiteral("Dismiss"));
    EXPECT_EQ(item("dismissButton").property("keyLabel").toString(), QStringLiteral("Esc"));
}

TEST_F(TakeoverViewTest, AnswersClicks) {
    make().show();
    click("primaryButton");
    EXPECT_EQ(joins, 1);
    click("snoozeButton");
    EXPECT_EQ(snoozes, 1);
    click("dismissButton");
    EXPECT_EQ(dismissals, 1);
    click("title");
    EXPECT_EQ(joins + snoozes + dismissals, 3);
}

TEST_F(TakeoverViewTest, GivesThePrimaryButtonTheFocusAndKeepsItThere) {
    gallery::Stage &stage = make();
    stage.show();
    EXPECT_TRUE(item("primaryButton").hasActiveFocus());
    QTest::keyClick(&stage.window(), Qt::Key_Tab);
    EXPECT_TRUE(item("primaryButton").hasActiveFocus());
}

// The joined face

TEST_F(TakeoverViewTest, ConfirmsTheJoin) {
    gallery::Stage &stage = make();
    stage.show();
    EXPECT_TRUE(isSeen("urgentFace"));
    EXPECT_FALSE(isSeen("joinedFace"));
    phaseState.phase.set(TakeoverPhase::joined);
    EXPECT_FALSE(isSeen("urgentFace"));
    EXPECT_TRUE(isSeen("joinedFace"));
    EXPECT_EQ(textOf("madeIt"), QStringLiteral("Made it."));
}

TEST_F(TakeoverViewTest, FadesToTheJoinedFace) {
    reducedMotion = false;
    gallery::Stage &stage = make();
    stage.show();
    phaseState.phase.set(TakeoverPhase::joined);
    EXPECT_DOUBLE_EQ(item("joinedFace").opacity(), 0.0);
    EXPECT_TRUE(stage.waitFor([&] { return item("joinedFace").opacity() == 1.0; }));
    EXPECT_TRUE(stage.waitFor([&] { return item("urgentFace").opacity() == 0.0; }));
}

TEST_F(TakeoverViewTest, ChangesAtOnceWithReducedMotion) {
    make().show();
    phaseState.phase.set(TakeoverPhase::joined);
    EXPECT_DOUBLE_EQ(item("joinedFace").opacity(), 1.0);
    EXPECT_DOUBLE_EQ(item("urgentFace").opacity(), 0.0);
}

TEST_F(TakeoverViewTest, HasNoButtonsOnceJoined) {
    reducedMotion = false;
    make().show();
    phaseState.phase.set(TakeoverPhase::joined);
    // Also not while they are still fading.
    click("primaryButton");
    click("snoozeButton");
    click("dismissButton");
    EXPECT_EQ(joins + snoozes + dismissals, 0);
}

TEST_F(TakeoverViewTest, IsUrgentAgainWithTheNextShowing) {
    gallery::Stage &stage = make();
    stage.show();
    phaseState.phase.set(TakeoverPhase::joined);
    phaseState.phase.set(TakeoverPhase::urgent);
    EXPECT_TRUE(isSeen("urgentFace"));
    EXPECT_FALSE(isSeen("joinedFace"));
    EXPECT_TRUE(item("primaryButton").hasActiveFocus());
}

// The echo face

TEST(TakeoverEchoViewTest, ShowsTheTitleAndNothingToPress) {
    gallery::Stage stage(takeoverEchoContent(QStringLiteral("Stand\u202Eup"), palette(Theme::dusk)),
                         {1366, 768});
    EXPECT_EQ(stage.find(QStringLiteral("title"))->property("text").toString(),
              QStringLiteral("Standup"));
    EXPECT_FALSE(stage.find(QStringLiteral("countdown")));
    EXPECT_FALSE(stage.find(QStringLiteral("primaryButton")));
    EXPECT_TRUE(stage.warnings().isEmpty());
}

TEST(TakeoverEchoViewTest, StaysUntouchedByClicks) {
    gallery::Stage stage(takeoverEchoContent(QStringLiteral("Standup"), palette(Theme::dusk)),
                         {800, 480});
    const QImage before = stage.picture();
    QTest::mouseClick(&stage.window(), Qt::LeftButton, Qt::NoModifier, {400, 240});
    EXPECT_EQ(stage.picture(), before);
}

// For screen readers

TEST_F(TakeoverViewTest, IsAnAlertWithTitleAndCountdownInIts) {
    gallery::Stage &stage = make();
    stage.show();
    QAccessibleInterface *view = QAccessible::queryAccessibleInterface(&stage.root());
    ASSERT_TRUE(view);
    EXPECT_EQ(view->role(), QAccessible::AlertMessage);
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("Standup, starts in 1:00"));
    queue.advance(Seconds{1.0});
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("Standup, starts in 1:00"));
    phaseState.phase.set(TakeoverPhase::joined);
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("Made it."));
}

TEST_F(TakeoverViewTest, NamesWhatIsInItInReadingOrder) {
    context.primaryAction = PrimaryAction::call(QStringLiteral("1"));
    gallery::Stage &stage = make();
    stage.show();
    EXPECT_EQ(accessibleNames(QAccessible::queryAccessibleInterface(&stage.root())),
              (QStringList{QStringLiteral("Standup"), QStringLiteral("starts in 1:00"),
                           QStringLiteral("Back to it."), QStringLiteral("Call"),
                           QStringLiteral("Snooze"), QStringLiteral("Dismiss")}));
}

TEST_F(TakeoverViewTest, AnswersTheScreenReadersPress) {
    make().show();
    for (const char *button : {"primaryButton", "snoozeButton", "dismissButton"}) {
        QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&item(button));
        ASSERT_TRUE(seen);
        EXPECT_EQ(seen->role(), QAccessible::Button);
        ASSERT_TRUE(seen->actionInterface());
        seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    EXPECT_EQ(joins, 1);
    EXPECT_EQ(snoozes, 1);
    EXPECT_EQ(dismissals, 1);
}

} // namespace vantrel
