#include "StatusItemFixture.h"
#include "Tray.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <optional>

namespace vantrel::tests {

class TrayToolTipTest : public StatusItemTest {
protected:
    TrayToolTipTest() { QCursor::setPos(elsewhere); }

    static QWindow *toolTip() {
        for (QWindow *window : QGuiApplication::topLevelWindows()) {
            if (window->type() == Qt::ToolTip && window->isExposed())
                return window;
        }
        return nullptr;
    }

    /// Puts the item into the tray and the pointer on it, and waits for the tooltip.
    testing::AssertionResult pointAtItem() {
        makeItem();
        item->setTitle(titled(QStringLiteral("Q&A • in 5 min")));
        item->setToolTip(QStringLiteral("<b>Q&A</b>"));
        if (!waitUntil([this] { return tray->docked().has_value(); }))
            return testing::AssertionFailure() << "it is not docked";
        return point();
    }

    static testing::AssertionResult point() {
        QCursor::setPos(Tray::frame.topLeft() + QPoint(5, 5));
        return waitUntil([] { return toolTip() != nullptr; }, Looking::often)
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "there is no tooltip";
    }

    static bool isGone() {
        return waitUntil([] { return !toolTip(); }, Looking::often);
    }

    static inline const QPoint elsewhere{700, 500};
    std::optional<Tray> tray{std::in_place};
};

TEST_F(TrayToolTipTest, TellsTitleAndCountdownAndGoesWithThePointer) {
    ASSERT_TRUE(pointAtItem());
    EXPECT_EQ(toolTip()->title(), QStringLiteral("Q&A • in 5 min\n<b>Q&A</b>"));
    QCursor::setPos(elsewhere);
    EXPECT_TRUE(isGone());
}

TEST_F(TrayToolTipTest, StandsBelowTheItemWholeOnTheScreen) {
    ASSERT_TRUE(pointAtItem());
    const QRect frame = toolTip()->geometry();
    EXPECT_GT(frame.top(), Tray::frame.bottom());
    EXPECT_LT(frame.top(), Tray::frame.bottom() + 10);
    item->setToolTip(QString(500, u'm'));
    EXPECT_TRUE(QGuiApplication::primaryScreen()->geometry().contains(toolTip()->geometry()));
    EXPECT_GT(toolTip()->width(), frame.width());
}

TEST_F(TrayToolTipTest, FollowsTheCountdownWhileItIsShown) {
    ASSERT_TRUE(pointAtItem());
    item->setTitle(titled(QStringLiteral("Q&A • in 4 min")));
    EXPECT_EQ(toolTip()->title(), QStringLiteral("Q&A • in 4 min\n<b>Q&A</b>"));
    item->setTitle(std::nullopt);
    item->setToolTip(QStringLiteral("Vantrel"));
    EXPECT_EQ(toolTip()->title(), QStringLiteral("Vantrel"));
}

TEST_F(TrayToolTipTest, ShowsMarkupAsItIs) {
    ASSERT_TRUE(pointAtItem());
    item->setTitle(std::nullopt);
    item->setToolTip(QStringLiteral("<b></b><b></b>"));
    const int withTags = toolTip()->width();
    item->setToolTip(QStringLiteral("mm"));
    EXPECT_GT(withTags, toolTip()->width());
}

TEST_F(TrayToolTipTest, GoesWithTheItemAndWithTheTray) {
    ASSERT_TRUE(pointAtItem());
    tray.reset();
    EXPECT_TRUE(isGone());
    tray.emplace();
    ASSERT_TRUE(waitUntil([this] { return tray->docked().has_value(); }));
    QCursor::setPos(elsewhere);
    ASSERT_TRUE(point());
    item.reset();
    EXPECT_TRUE(isGone());
}

} // namespace vantrel::tests
