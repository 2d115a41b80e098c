#include <menubar/UpcomingMenuTarget.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel {
namespace {

class UpcomingMenuTargetTest : public testing::Test {
protected:
    std::function<void()> recorded(const char *name) {
        return [this, name] { calls.emplace_back(name); };
    }

    void setAll() {
        target.openPreferencesHandler = recorded("preferences");
        target.previewTakeoverHandler = recorded("preview");
        target.openRecapHandler = recorded("recap");
        target.quitHandler = recorded("quit");
    }

    const MenuItem &item(std::size_t index) const { return std::get<MenuItem>(menu.at(index)); }

    UpcomingMenuTarget target;
    std::vector<std::string> calls;
    Menu menu;
};

TEST_F(UpcomingMenuTargetTest, CallsItsHandlers) {
    setAll();
    target.openPreferences();
    target.previewTakeover();
    target.openRecap();
    target.quitApp();
    EXPECT_EQ(calls, (std::vector<std::string>{"preferences", "preview", "recap", "quit"}));
}

TEST_F(UpcomingMenuTargetTest, DoesNothingWithoutHandlers) {
    target.openPreferences();
    target.previewTakeover();
    target.openRecap();
    target.quitApp();
    EXPECT_TRUE(calls.empty());
}

TEST_F(UpcomingMenuTargetTest, LetsAHandlerTakeItselfAway) {
    target.quitHandler = [this] {
        target.quitHandler = {};
        calls.emplace_back("quit");
    };
    target.quitApp();
    target.quitApp();
    EXPECT_EQ(calls, std::vector<std::string>{"quit"});
}

TEST_F(UpcomingMenuTargetTest, OffersItsActionsInOrderWithTheirKeys) {
    setAll();
    menu = target.menu();
    ASSERT_EQ(menu.size(), 5U);
    EXPECT_EQ(item(0).title, u"This week's rescues");
    EXPECT_EQ(item(0).keyEquivalent, u"");
    EXPECT_EQ(item(1).title, u"Preferences…");
    EXPECT_EQ(item(1).keyEquivalent, u",");
    EXPECT_EQ(item(2).title, u"Preview takeover");
    EXPECT_EQ(item(2).keyEquivalent, u"");
    EXPECT_TRUE(std::holds_alternative<MenuSeparator>(menu[3]));
    EXPECT_EQ(item(4).title, u"Quit Vantrel");
    EXPECT_EQ(item(4).keyEquivalent, u"q");
    for (const std::size_t index : {0U, 1U, 2U, 4U})
        item(index).action();
    EXPECT_EQ(calls, (std::vector<std::string>{"recap", "preferences", "preview", "quit"}));
}

TEST_F(UpcomingMenuTargetTest, OffersWhatHasNoHandlerAsNotToBeChosen) {
    target.quitHandler = recorded("quit");
    menu = target.menu();
    for (const std::size_t index : {0U, 1U, 2U})
        EXPECT_FALSE(item(index).action);
    EXPECT_TRUE(item(4).action);
}

TEST_F(UpcomingMenuTargetTest, CallsNothingThroughAMenuWhoseHandlerHasGone) {
    setAll();
    menu = target.menu();
    target.quitHandler = {};
    item(4).action();
    EXPECT_TRUE(calls.empty());
}

TEST_F(UpcomingMenuTargetTest, IsSharedByAll) {
    EXPECT_EQ(&UpcomingMenuTarget::shared(), &UpcomingMenuTarget::shared());
}

} // namespace
} // namespace vantrel
