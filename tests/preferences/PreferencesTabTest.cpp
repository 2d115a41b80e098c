#include <preferences/PreferencesTab.h>

#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <vector>

namespace vantrel {
namespace {

using ::testing::ElementsAreArray;

TEST(PreferencesTab, IsListedInTheOrderOfTheSidebar) {
    std::vector<std::tuple<std::string, std::string, std::string>> listed;
    for (const PreferencesTab tab : allPreferencesTabs)
        listed.emplace_back(rawValue(tab).toStdString(), title(tab).toStdString(),
                            icon(tab).toStdString());
    const std::vector<std::tuple<std::string, std::string, std::string>> expected{
        {"calendars", "Calendars", "calendar"},
        {"general", "General", "gear"},
        {"takeover", "Takeover", "rectangle.inset.filled"},
        {"eventFilters", "Event Filters", "line.3.horizontal.decrease.circle"},
        {"menuBar", "Menu Bar", "menubar.rectangle"},
        {"appearance", "Appearance", "paintpalette"},
        {"about", "About", "info.circle"}};
    EXPECT_THAT(listed, ElementsAreArray(expected));
}

TEST(PreferencesTab, IsFoundByItsRawValueAlone) {
    for (const PreferencesTab tab : allPreferencesTabs)
        EXPECT_EQ(preferencesTabFromRawValue(rawValue(tab)), tab);
    EXPECT_EQ(preferencesTabFromRawValue(QStringLiteral("Calendars")), std::nullopt);
    EXPECT_EQ(preferencesTabFromRawValue(QString()), std::nullopt);
}

} // namespace
} // namespace vantrel
