#include <linux/layershell/LayerShell.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <linux/shield/QtScreenLayout.h>
#include <linux/shield/QtShieldingPanels.h>
#include <linux/views/ViewEngine.h>

#include <desktop/Desktop.h>
#include <gtest/gtest.h>

#include <set>

namespace vantrel::tests {
namespace {

class QtScreenLayoutTest : public testing::Test {
protected:
    QtMainQueue queue;
    QtScreenLayout layout{queue};
    int changes = 0;
    Subscription subscription = layout.changed.subscribe([this] { ++changes; });

    ~QtScreenLayoutTest() override {
        subscription.reset();
        joinMonitors();
        connectBothMonitors();
        waitUntil([this] { return frames() == std::vector{leftMonitor, rightMonitor}; });
    }

    [[nodiscard]] std::vector<QRect> frames() const {
        std::vector<QRect> found;
        for (const Screen &screen : layout.screens())
            found.push_back(screen.frame);
        return found;
    }
};

TEST_F(QtScreenLayoutTest, ListsEachMonitorWithAnIdOfItsOwn) {
    EXPECT_EQ(frames(), (std::vector{leftMonitor, rightMonitor}));
    const std::vector<Screen> screens = layout.screens();
    EXPECT_NE(screens[0].id, screens[1].id);
    EXPECT_EQ(screens, layout.screens());
}

TEST_F(QtScreenLayoutTest, NamesAMainMonitorAmongThem) {
    const auto screens = layout.screens();
    const auto main = layout.mainScreen();
    ASSERT_TRUE(main);
    EXPECT_NE(std::find(screens.begin(), screens.end(), *main), screens.end());
}

TEST_F(QtScreenLayoutTest, TellsWhereThePointerIs) {
    OtherProgram other;
    other.click(QPoint(1000, 123));
    EXPECT_EQ(layout.mouseLocation(), QPoint(1000, 123));
    other.click(QPoint(10, 20));
    EXPECT_EQ(layout.mouseLocation(), QPoint(10, 20));
}

TEST_F(QtScreenLayoutTest, AnnouncesAMonitorThatGoesAndOneThatComes) {
    const std::vector<Screen> before = layout.screens();
    disconnectRightMonitor();
    EXPECT_TRUE(waitUntil([this] { return changes > 0; }));
    EXPECT_TRUE(waitUntil([this] { return frames() == std::vector{leftMonitor}; }));
    EXPECT_EQ(layout.screens()[0], before[0]) << "the monitor that stays has another name";

    changes = 0;
    connectBothMonitors();
    EXPECT_TRUE(waitUntil([this] { return changes > 0; }));
    EXPECT_TRUE(waitUntil([&] { return layout.screens() == before; }));
}

TEST_F(QtScreenLayoutTest, AnnouncesAMonitorThatChangesItsSize) {
    joinMonitors();
    EXPECT_TRUE(waitUntil([this] { return frames() == std::vector{wholeScreen}; }));
    const QString id = layout.screens()[0].id;

    changes = 0;
    setSmallMode(true);
    const std::vector<QRect> smaller{QRect(0, 0, 1280, 500)};
    EXPECT_TRUE(waitUntil([&] { return changes > 0 && frames() == smaller; }));
    EXPECT_EQ(layout.screens()[0].id, id);
    setSmallMode(false);
}

TEST_F(QtScreenLayoutTest, AnnouncesWhatIsTrueByThen) {
    std::set<std::size_t> counts;
    subscription = layout.changed.subscribe([&] { counts.insert(layout.screens().size()); });
    disconnectRightMonitor();
    EXPECT_TRUE(waitUntil([&] { return !counts.empty(); }));
    EXPECT_EQ(counts, std::set<std::size_t>{1});
}

TEST_F(QtScreenLayoutTest, StaysSilentOnceItsSubscriberHasGone) {
    subscription.reset();
    disconnectRightMonitor();
    EXPECT_TRUE(waitUntil([this] { return frames().size() == 1; }));
    EXPECT_EQ(changes, 0);
}

TEST_F(QtScreenLayoutTest, HasNoPanelForAMonitorThatHasGone) {
    ViewEngine views;
    const LayerShell layerShell;
    QtShieldingPanels panels(queue, views, layerShell);
    const Screen right = layout.screens()[1];
    disconnectRightMonitor();
    EXPECT_TRUE(waitUntil([this] { return frames().size() == 1; }));
    EXPECT_EQ(panels.makePanel(right, PanelRole::echo, {u"Shield.Tests"_qs, u"Plain"_qs, {}}),
              nullptr);
}

} // namespace
} // namespace vantrel::tests
