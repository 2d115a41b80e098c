#include <linux/statusitem/NumberedMenu.h>

#include <gmock/gmock.h>

namespace vantrel::tests {

namespace {

Menu menuOf(const QString &title) {
    return {MenuItem{title, {}, [] {}}, MenuSeparator{}};
}

} // namespace

TEST(NumberedMenuTest, KeepsItsNumbersWhileItReadsAlike) {
    NumberedMenu menu;
    EXPECT_TRUE(menu.replace(menuOf(QStringLiteral("One"))));
    const auto numbers = menu.lines();
    const uint revision = menu.revision();
    EXPECT_FALSE(menu.replace(menuOf(QStringLiteral("One"))));
    EXPECT_EQ(menu.lines(), numbers);
    EXPECT_EQ(menu.revision(), revision);
}

TEST(NumberedMenuTest, GivesOtherNumbersWhenItReadsOtherwise) {
    NumberedMenu menu;
    menu.replace(menuOf(QStringLiteral("One")));
    const auto numbers = menu.lines();
    const uint revision = menu.revision();
    for (Menu other : {menuOf(QStringLiteral("Two")), Menu{MenuSeparator{}, MenuSeparator{}},
                       Menu{MenuItem{QStringLiteral("Two"), {}, {}}, MenuSeparator{}},
                       Menu{MenuItem{QStringLiteral("Two"), QStringLiteral("q"), {}}}, Menu{}}) {
        EXPECT_TRUE(menu.replace(std::move(other)));
        EXPECT_FALSE(menu.has(numbers[0]));
        EXPECT_FALSE(menu.has(numbers[1]));
    }
    EXPECT_EQ(menu.revision(), revision + 5);
    EXPECT_THAT(menu.lines(), testing::IsEmpty());
    EXPECT_TRUE(menu.has(NumberedMenu::wholeMenu));
}

TEST(NumberedMenuTest, HasADefaultForEachPropertyAndForNoOther) {
    EXPECT_EQ(NumberedMenu::defaultOf(QStringLiteral("visible")), QVariant(true));
    EXPECT_EQ(NumberedMenu::defaultOf(QStringLiteral("visibility")), std::nullopt);
}

} // namespace vantrel::tests
