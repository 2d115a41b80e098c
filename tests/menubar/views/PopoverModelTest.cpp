#include <QSignalSpy>

#include <gallery/ShownPopover.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

class PopoverModelTest : public testing::Test {
protected:
    gallery::ShownPopover popover;
    PopoverModel &model = popover.model;
};

TEST_F(PopoverModelTest, FollowsTheViewModel) {
    popover.add({QStringLiteral("Standup"), fakes::at("2026-03-02T10:00:00")});
    QSignalSpy emptyChanges(&model, &PopoverModel::isEmptyChanged);
    QSignalSpy modeChanges(&model, &PopoverModel::modeChanged);
    EXPECT_TRUE(model.isEmpty());
    popover.viewModel.refresh();
    EXPECT_FALSE(model.isEmpty());
    popover.viewModel.refresh();
    EXPECT_EQ(emptyChanges.size(), 1);
    popover.viewModel.setMode(EventListMode::all);
    EXPECT_EQ(model.mode(), PopoverModel::All);
    model.setMode(PopoverModel::All);
    EXPECT_EQ(modeChanges.size(), 1);
    model.setMode(PopoverModel::Today);
    EXPECT_EQ(popover.viewModel.mode(), EventListMode::today);
}

TEST_F(PopoverModelTest, TellsThePauseOnceAChange) {
    QSignalSpy changes(&model, &PopoverModel::isPausedChanged);
    model.togglePaused();
    EXPECT_TRUE(popover.preferences.isPaused());
    popover.preferences.setIsPaused(true);
    EXPECT_EQ(changes.size(), 1);
    model.togglePaused();
    EXPECT_FALSE(popover.preferences.isPaused());
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(PopoverModelTest, JoinsWhatHasACallAlone) {
    popover.add({QStringLiteral("None"), fakes::at("2026-03-02T10:00:00")});
    popover.add({QStringLiteral("Phone"),
                 fakes::at("2026-03-02T11:00:00"),
                 30,
                 {},
                 false,
                 QStringLiteral("Tel: +41 44 668 18 00"),
                 {}});
    popover.add({QStringLiteral("Call"),
                 fakes::at("2026-03-02T12:00:00"),
                 30,
                 {},
                 false,
                 QStringLiteral("https://zoom.us/j/98765432100"),
                 {}});
    popover.viewModel.refresh();
    for (const int row : {-1, 0, 1, 3})
        model.join(row);
    EXPECT_TRUE(popover.joined.empty());
    model.join(2);
    ASSERT_EQ(popover.joined.size(), 1u);
    EXPECT_EQ(popover.joined[0].title, QStringLiteral("Call"));
}

TEST_F(PopoverModelTest, HasTheLineOfTheMode) {
    EXPECT_EQ(model.emptyLine(), QStringLiteral("all clear today"));
    model.setMode(PopoverModel::All);
    EXPECT_EQ(model.emptyLine(), QStringLiteral("calendar's quiet"));
}

} // namespace
} // namespace vantrel
