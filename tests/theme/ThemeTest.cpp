#include <theme/Theme.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel {

namespace {

struct ThemeRow {
    Theme theme;
    const char16_t *rawValue;
    const char16_t *name;
    const char16_t *description;
};

class ThemeTest : public testing::TestWithParam<ThemeRow> {};

} // namespace

TEST_P(ThemeTest, HasItsTexts) {
    EXPECT_EQ(rawValue(GetParam().theme), QString::fromUtf16(GetParam().rawValue));
    EXPECT_EQ(name(GetParam().theme), QString::fromUtf16(GetParam().name));
    EXPECT_EQ(description(GetParam().theme), QString::fromUtf16(GetParam().description));
}

TEST_P(ThemeTest, IsFoundByItsRawValue) {
    EXPECT_EQ(themeFromRawValue(QString::fromUtf16(GetParam().rawValue)), GetParam().theme);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ThemeTest,
    testing::Values(
        ThemeRow{Theme::hearth, u"hearth", u"Hearth", u"Warm amber and wood, the family default"},
        ThemeRow{Theme::summit, u"summit", u"Summit", u"Clean and minimal, snow-light"},
        ThemeRow{Theme::alpineDawn, u"alpineDawn", u"Alpine Dawn", u"Cool morning blues"},
        ThemeRow{Theme::dusk, u"dusk", u"Dusk", u"Deep indigo, late-day calm"},
        ThemeRow{Theme::chestnut, u"chestnut", u"Chestnut",
                 u"Tobble's coat \u2014 cream and chestnut"}),
    [](const auto &row) { return rawValue(row.param.theme).toStdString(); });

TEST(ThemesTest, AreListedInTheOrderOfThePicker) {
    EXPECT_EQ(std::vector(allThemes.cbegin(), allThemes.cend()),
              (std::vector{Theme::hearth, Theme::summit, Theme::alpineDawn, Theme::dusk,
                           Theme::chestnut}));
}

TEST(ThemesTest, AreNotFoundByAnotherText) {
    for (const char16_t *text : {u"", u"Hearth", u"hearth ", u"alpine dawn", u"midnight"})
        EXPECT_EQ(themeFromRawValue(QString::fromUtf16(text)), std::nullopt);
}

} // namespace vantrel
