#include <rescues/RecapContents.h>
#include <theme/Theme.h>

#include <QAccessible>
#include <QTest>

#include <gallery/Stage.h>
#include <gmock/gmock.h>

#include <memory>

namespace vantrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecapViewTest : public testing::Test {
protected:
    RecapViewTest() {
        view.weekly.rescuesFromTakeover = 2;
        view.weekly.totalRescues = 2;
        view.lifetime.totalRescues = 7;
        view.palette = palette(Theme::hearth);
    }

    gallery::Stage &make(QSize size = {520, 600}) {
        viewModel.show(view);
        m_stage = std::make_unique<gallery::Stage>(recapContent(viewModel), size);
        m_stage->show();
        return *m_stage;
    }

    /// What a person reads, from the top.
    QStringList texts() const {
        QStringList found;
        for (const QQuickItem *item : gallery::withDescendants(m_stage->root())) {
            const QString text = item->property("text").toString();
            const bool isText = item->inherits("QQuickText");
            if (isText && item->isVisible() && !text.isEmpty())
                found.append(text);
        }
        return found;
    }

    bool isShown(const char *objectName) const {
        return m_stage->find(QLatin1String(objectName))->isVisible();
    }

    QString pose() const {
        return m_stage->find(QStringLiteral("mascot"))->property("pose").toString();
    }

    RecapView view;
    RecapViewModel viewModel;

private:
    std::unique_ptr<gallery::Stage> m_stage;
};

TEST_F(RecapViewTest, GreetsWhoWasNeverFetched) {
    view.weekly = {};
    view.lifetime = {};
    view.weekly.snoozes = 3;
    make();
    EXPECT_THAT(
        texts(),
        ElementsAre(QStringLiteral("Tobble is still getting to know you."),
                    QStringLiteral("Rescues count up here as Tobble fetches you to meetings.")));
    EXPECT_EQ(pose(), u"tobble-thoughtful");
}

TEST_F(RecapViewTest, ShowsTheWeekInItsOrder) {
    view.weekly.totalRescues = 6;
    view.weekly.rescuesFromTakeover = 5;
    view.weekly.rescuesFromPopover = 1;
    view.weekly.snoozes = 2;
    view.weekly.dismisses = 1;
    make();
    EXPECT_THAT(texts(), ElementsAre(QStringLiteral("Tobble fetched you"), QStringLiteral("6"),
                                     QStringLiteral("times this week."),
                                     QStringLiteral("5 from the takeover"),
                                     QStringLiteral("1 from the popover"),
                                     QStringLiteral("2 snoozes"), QStringLiteral("1 dismiss"),
                                     QStringLiteral("A good week of fetches.")));
    EXPECT_EQ(pose(), u"tobble-rescue");
}

TEST_F(RecapViewTest, ShowsAWeekWithoutARescueToWhoWasFetchedBefore) {
    view.weekly = {};
    make();
    EXPECT_THAT(texts(), ElementsAre(QStringLiteral("Tobble fetched you"), QStringLiteral("0"),
                                     QStringLiteral("times this week.")));
    EXPECT_FALSE(isShown("statistics"));
}

TEST_F(RecapViewTest, SaysOneTime) {
    view.weekly.totalRescues = 1;
    make();
    EXPECT_EQ(texts().value(2), u"time this week.");
}

TEST_F(RecapViewTest, ThanksForFriendsOnceThereAreAny) {
    view.weekly.pingsSent = 1;
    make();
    EXPECT_TRUE(texts().contains(QStringLiteral("You fetched 1 friend.")));
}

TEST_F(RecapViewTest, CountsOnWhileItIsShown) {
    make();
    view.weekly.totalRescues = 3;
    view.weekly.rescuesFromTakeover = 3;
    viewModel.show(view);
    EXPECT_TRUE(texts().contains(QStringLiteral("3")));
    EXPECT_TRUE(texts().contains(QStringLiteral("3 from the takeover")));
}

TEST_F(RecapViewTest, OffersNoControlsThatNobodyGave) {
    make();
    EXPECT_FALSE(texts().contains(QStringLiteral("Seed sample week")));
    EXPECT_FALSE(texts().contains(QStringLiteral("Clear")));
}

TEST_F(RecapViewTest, OffersTheControlsItWasGiven) {
    int seeded = 0;
    int cleared = 0;
    view.onSeedSample = [&] { ++seeded; };
    view.onClear = [&] { ++cleared; };
    gallery::Stage &stage = make();
    for (QQuickItem *item : gallery::withDescendants(stage.root())) {
        if (item->activeFocusOnTab()) {
            item->forceActiveFocus();
            QTest::keyClick(&stage.window(), Qt::Key_Space);
        }
    }
    EXPECT_EQ(seeded, 1);
    EXPECT_EQ(cleared, 1);
}

TEST_F(RecapViewTest, EscapeClosesTheWindow) {
    gallery::Stage &stage = make();
    QTest::keyClick(&stage.window(), Qt::Key_Escape);
    EXPECT_FALSE(stage.window().isVisible());
}

TEST_F(RecapViewTest, StaysWholeAtItsLeastSizeWithEverythingInIt) {
    view.weekly = {1'234'567'890, 1'234'567'889, 1, 44, 7, 3, 7, 7};
    gallery::Stage &stage = make({480, 520});
    const QRectF window(QPointF(), stage.root().size());
    for (const QQuickItem *item : gallery::withDescendants(stage.root())) {
        if (item->inherits("QQuickText") && item->isVisible()) {
            EXPECT_TRUE(window.contains(item->mapRectToItem(&stage.root(), item->boundingRect())))
                << item->property("text").toString().toStdString();
        }
    }
    EXPECT_THAT(stage.warnings(), IsEmpty());
}

TEST_F(RecapViewTest, TellsAScreenReaderTheWeekInOneSentence) {
    gallery::Stage &stage = make();
    QStringList names;
    for (QQuickItem *item : gallery::withDescendants(stage.root())) {
        if (const QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(item)) {
            if (item->isVisible() && reader->role() == QAccessible::Heading)
                names.append(reader->text(QAccessible::Name));
        }
    }
    EXPECT_THAT(names, ElementsAre(QStringLiteral("Tobble fetched you 2 times this week.")));
}

} // namespace
} // namespace vantrel
