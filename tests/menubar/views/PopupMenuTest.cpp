#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingPopups.h>
#include <menubar/PopupMenu.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

class PopupMenuTest : public testing::Test {
protected:
    MenuModel &model() {
        return *popups.popups[0]
                    ->content.properties.value(QStringLiteral("viewModel"))
                    .value<MenuModel *>();
    }

    Menu items() {
        return {MenuItem{QStringLiteral("Quit"), QStringLiteral("q"), [this] {
                             isShownWhenChosen = menu.isShown();
                             ++choices;
                         }}};
    }

    int choices = 0;
    bool isShownWhenChosen = true;
    fakes::ManualMainQueue queue{Instant{}};
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences{defaults};
    fakes::RecordingPopups popups;
    QLocale locale{QLocale::English};
    PopupMenu menu{popups, preferences, queue,
                   [this] { return LocalCalendar(QTimeZone::utc(), locale); }};
};

TEST_F(PopupMenuTest, OpensBesideTheClick) {
    menu.show(items(), QPoint(500, 20));
    ASSERT_EQ(popups.popups.size(), 1u);
    const PopupPlace place = popups.popups[0]->places.at(0);
    EXPECT_EQ(place.anchor, QRect(494, 32, 0, 0));
    EXPECT_EQ(place.alignment, PopupAlignment::leading);
    EXPECT_EQ(model().rowCount(), 1);
}

TEST_F(PopupMenuTest, DoesWhatIsChosenOnceItIsGone) {
    menu.show(items(), QPoint());
    EXPECT_TRUE(model().chooseByKey(QStringLiteral("q")));
    EXPECT_FALSE(menu.isShown());
    EXPECT_EQ(choices, 0);
    queue.advance(Seconds{0.0});
    EXPECT_EQ(choices, 1);
    EXPECT_FALSE(isShownWhenChosen);
}

TEST_F(PopupMenuTest, ShowsTheItemsOfTheTime) {
    menu.show(items(), QPoint());
    menu.close();
    preferences.setSelectedTheme(Theme::dusk);
    locale = QLocale(QLocale::Arabic);
    menu.show({MenuSeparator{}, MenuSeparator{}}, QPoint());
    EXPECT_EQ(popups.popups.size(), 1u);
    EXPECT_EQ(model().rowCount(), 2);
    EXPECT_TRUE(model().isRightToLeft());
    EXPECT_EQ(model().themePalette(), ThemePalette(palette(Theme::dusk)));
}

TEST_F(PopupMenuTest, NeedsNoClick) {
    menu.show(items(), PopupPlace{});
    EXPECT_FALSE(popups.popups[0]->places.at(0).anchor);
}

} // namespace
} // namespace vantrel
