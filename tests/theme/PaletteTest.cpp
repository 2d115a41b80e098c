#include <theme/BrandColors.h>
#include <theme/Theme.h>

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>

namespace vantrel {

namespace {

/// A colour as the table of themes writes it: 0xRRGGBB and an opacity.
struct Written {
    unsigned rgb;
    double opacity = 1.0;
};

Color color(Written written) {
    return Color{((written.rgb >> 16) & 0xFF) / 255.0, ((written.rgb >> 8) & 0xFF) / 255.0,
                 (written.rgb & 0xFF) / 255.0, written.opacity};
}

struct BrandRow {
    const char *name;
    const Color &(*brand)();
    unsigned rgb;
};

class BrandColorsTest : public testing::TestWithParam<BrandRow> {};

struct PaletteRow {
    Theme theme;
    const char *field;
    Color Palette::*member;
    Written written;
};

class PaletteColorTest : public testing::TestWithParam<PaletteRow> {};

} // namespace

TEST_P(BrandColorsTest, IsOpaqueAndAsNamed) {
    EXPECT_EQ(GetParam().brand(), color({GetParam().rgb}));
}

TEST_P(BrandColorsTest, IsBuiltOnce) {
    EXPECT_EQ(&GetParam().brand(), &GetParam().brand());
}

INSTANTIATE_TEST_SUITE_P(Table, BrandColorsTest,
                         testing::Values(BrandRow{"honey", &BrandColors::honey, 0xE8A04C},
                                         BrandRow{"amber", &BrandColors::amber, 0xD17F2A},
                                         BrandRow{"moss", &BrandColors::moss, 0x8FA47C},
                                         BrandRow{"blush", &BrandColors::blush, 0xD97E70},
                                         BrandRow{"cream", &BrandColors::cream, 0xF5EBDC},
                                         BrandRow{"parchment", &BrandColors::parchment, 0xFAF3E7},
                                         BrandRow{"bark", &BrandColors::bark, 0x3D2E22}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_P(PaletteColorTest, IsAsInTheTable) {
    EXPECT_EQ(palette(GetParam().theme).*GetParam().member, color(GetParam().written));
}

#define ROW(theme, field, ...)                                                                     \
    PaletteRow {                                                                                   \
        Theme::theme, #field, &Palette::field, {                                                   \
            __VA_ARGS__                                                                            \
        }                                                                                          \
    }
INSTANTIATE_TEST_SUITE_P(
    Table, PaletteColorTest,
    testing::Values(
        ROW(hearth, surfaceBackground, 0xFAF3E7), ROW(hearth, primaryText, 0x3D2E22),
        ROW(hearth, secondaryText, 0x3D2E22, 0.75), ROW(hearth, accent, 0xE8A04C),
        ROW(hearth, accentForeground, 0xFFFFFF), ROW(hearth, dimSurface, 0xF5EBDC),
        ROW(hearth, dotStroke, 0xD17F2A, 0.25),

        ROW(summit, surfaceBackground, 0xF4F5F7), ROW(summit, primaryText, 0x1F2937),
        ROW(summit, secondaryText, 0x1F2937, 0.65), ROW(summit, accent, 0x5A7B5C),
        ROW(summit, accentForeground, 0xFFFFFF), ROW(summit, dimSurface, 0xE9ECEF),
        ROW(summit, dotStroke, 0x5A7B5C, 0.18),

        ROW(alpineDawn, surfaceBackground, 0xE8EEF4), ROW(alpineDawn, primaryText, 0x1A2A3F),
        ROW(alpineDawn, secondaryText, 0x1A2A3F, 0.7), ROW(alpineDawn, accent, 0x4A6FA5),
        ROW(alpineDawn, accentForeground, 0xFFFFFF), ROW(alpineDawn, dimSurface, 0xD8E2EE),
        ROW(alpineDawn, dotStroke, 0x4A6FA5, 0.22),

        ROW(dusk, surfaceBackground, 0x1F1B2E), ROW(dusk, primaryText, 0xF5EBDC),
        ROW(dusk, secondaryText, 0xF5EBDC, 0.7), ROW(dusk, accent, 0xE8A04C),
        ROW(dusk, accentForeground, 0x1F1B2E), ROW(dusk, dimSurface, 0x2A2541),
        ROW(dusk, dotStroke, 0xE8A04C, 0.4),

        ROW(chestnut, surfaceBackground, 0xF5EBDC), ROW(chestnut, primaryText, 0x4B2412),
        ROW(chestnut, secondaryText, 0x4B2412, 0.7), ROW(chestnut, accent, 0x8B4513),
        ROW(chestnut, accentForeground, 0xF5EBDC), ROW(chestnut, dimSurface, 0xEDDCC4),
        ROW(chestnut, dotStroke, 0x8B4513, 0.25)),
    [](const auto &row) {
        return rawValue(row.param.theme).toStdString() + "_" + row.param.field;
    });
#undef ROW

TEST(PaletteTest, DuskAloneIsDark) {
    for (const Theme theme : allThemes)
        EXPECT_EQ(palette(theme).isDark, theme == Theme::dusk) << rawValue(theme).toStdString();
}

TEST(PaletteTest, DuskDrawsItsBackgroundOnItsAccent) {
    EXPECT_EQ(palette(Theme::dusk).accentForeground, palette(Theme::dusk).surfaceBackground);
}

TEST(PaletteTest, DiffersWhenOneFieldDoes) {
    Palette changed = palette(Theme::hearth);
    EXPECT_EQ(changed, palette(Theme::hearth));
    changed.isDark = true;
    EXPECT_NE(changed, palette(Theme::hearth));
}

TEST(PaletteTest, IsTheSameObjectEachTimeAndOnEveryThread) {
    std::array<const Palette *, 4> seen{};
    std::array<std::thread, 4> threads;
    for (std::size_t index = 0; index < threads.size(); ++index)
        threads[index] = std::thread([&seen, index] { seen[index] = &palette(Theme::dusk); });
    for (auto &thread : threads)
        thread.join();
    for (const Palette *one : seen)
        EXPECT_EQ(one, &palette(Theme::dusk));
}

} // namespace vantrel
