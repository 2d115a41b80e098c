#include <fakes/InMemoryUserDefaults.h>
#include <fakes/RecordingWindows.h>
#include <preferences/PreferencesWindowController.h>

#include <gallery/ShownPreferences.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

class PreferencesWindowControllerTest : public testing::Test {
protected:
    fakes::InMemoryUserDefaults defaults;
    gallery::ShownPreferences shown{defaults};
    fakes::RecordingWindows windows;
    PreferencesWindowController controller{shown.coordinator(), shown.preferences, shown.workspace,
                                           windows, [this] { return shown.currentCalendar; }};
};

TEST_F(PreferencesWindowControllerTest, MakesOneWindowAndShowsItWhenItIsAsked) {
    ASSERT_EQ(windows.windows.size(), 1U);
    const auto &window = *windows.windows.front();
    EXPECT_EQ(window.description.title, u"Vantrel");
    EXPECT_EQ(window.description.size, QSize(880, 600));
    EXPECT_EQ(window.description.level, WindowLevel::normal);
    EXPECT_EQ(window.content.typeName, u"PreferencesView");
    EXPECT_EQ(window.showings, 0);
    controller.show();
    controller.show();
    EXPECT_EQ(window.showings, 2);
    EXPECT_EQ(windows.windows.size(), 1U);
}

TEST_F(PreferencesWindowControllerTest, BeginsWithTheCalendarsAndKeepsThePage) {
    EXPECT_EQ(controller.model().selection(), PreferencesTab::calendars);
    controller.model().select(PreferencesTab::about);
    controller.show();
    EXPECT_EQ(controller.model().selection(), PreferencesTab::about);
}

TEST_F(PreferencesWindowControllerTest, ReadsTheLoginItemAnewWhenItIsShown) {
    shown.loginItem.current = LoginItem::Status::enabled;
    EXPECT_FALSE(controller.model().general()->isStartedAtLogin());
    controller.show();
    EXPECT_TRUE(controller.model().general()->isStartedAtLogin());
}

} // namespace
} // namespace vantrel
