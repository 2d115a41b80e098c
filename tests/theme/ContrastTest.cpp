#include <theme/Theme.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace vantrel {

namespace {

/// Relative luminance as WCAG 2 defines it.
double luminance(const Color &color) {
    const auto linear = [](double component) {
        return component <= 0.04045 ? component / 12.92
                                    : std::pow((component + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

Color over(const Color &ground, const Color &color, double opacity) {
    const auto mixed = [opacity](double above, double below) {
        return above * opacity + below * (1.0 - opacity);
    };
    return Color{mixed(color.red, ground.red), mixed(color.green, ground.green),
                 mixed(color.blue, ground.blue), 1.0};
}

double contrast(const Color &text, const Color &ground) {
    const auto [darker, lighter] =
        std::minmax({luminance(over(ground, text, text.alpha)), luminance(ground)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// A text on its ground, as windows draw them.
struct Pair {
    const char *name;
    Color Palette::*text;
    Color Palette::*ground;
};

constexpr Pair pairs[] = {
    {"text on surface", &Palette::primaryText, &Palette::surfaceBackground},
    {"text on dim surface", &Palette::primaryText, &Palette::dimSurface},
    {"quiet text on surface", &Palette::secondaryText, &Palette::surfaceBackground},
    {"quiet text on dim surface", &Palette::secondaryText, &Palette::dimSurface},
    {"label on accent", &Palette::accentForeground, &Palette::accent},
    {"accent on surface", &Palette::accent, &Palette::surfaceBackground},
    {"accent on dim surface", &Palette::accent, &Palette::dimSurface},
};

/// A pair that a palette makes weak by the colours it is given. Whoever draws text in it draws it
/// large or bold, and never says with it alone what has to be read.
struct WeakPair {
    Theme theme;
    std::string name;
    double contrast;
};

const WeakPair weakPairs[] = {
    {Theme::hearth, "label on accent", 2.20},
    {Theme::hearth, "accent on surface", 1.99},
    {Theme::hearth, "accent on dim surface", 1.86},
    {Theme::summit, "quiet text on dim surface", 4.40},
    {Theme::summit, "accent on surface", 4.35},
    {Theme::summit, "accent on dim surface", 4.00},
    {Theme::alpineDawn, "accent on surface", 4.37},
    {Theme::alpineDawn, "accent on dim surface", 3.90},
};

const WeakPair *weakPair(Theme theme, const std::string &name) {
    const auto *const found = std::ranges::find_if(
        weakPairs, [&](const WeakPair &weak) { return weak.theme == theme && weak.name == name; });
    return found == std::end(weakPairs) ? nullptr : found;
}

class ContrastTest : public testing::TestWithParam<Theme> {
protected:
    Palette colors = palette(GetParam());
};

/// What WCAG 2 asks of text, level AA, and of large text, level AAA.
constexpr double readable = 4.5;
constexpr double comfortable = 7.0;

} // namespace

TEST_P(ContrastTest, MakesEveryTextReadableOnItsGroundButInThePairsKnownToBeWeak) {
    for (const Pair &pair : pairs) {
        const double found = contrast(colors.*pair.text, colors.*pair.ground);
        if (const WeakPair *weak = weakPair(GetParam(), pair.name))
            EXPECT_NEAR(found, weak->contrast, 0.005) << pair.name;
        else
            EXPECT_GE(found, readable) << pair.name;
    }
}

TEST_P(ContrastTest, MakesThePrimaryTextComfortable) {
    EXPECT_GE(contrast(colors.primaryText, colors.surfaceBackground), comfortable);
    EXPECT_GE(contrast(colors.primaryText, colors.dimSurface), comfortable);
}

TEST_P(ContrastTest, KeepsSelectedTextReadable) {
    for (const Color &ground : {colors.surfaceBackground, colors.dimSurface}) {
        const Color selection = over(ground, colors.dotStroke, colors.dotStroke.alpha);
        EXPECT_GE(contrast(colors.primaryText, selection), readable);
    }
}

TEST_P(ContrastTest, KeepsTheQuietButtonsReadableThroughTheirOpacity) {
    Color label = colors.primaryText;
    label.alpha = 0.85;
    EXPECT_GE(contrast(label, colors.surfaceBackground), comfortable);
    EXPECT_GE(contrast(label, colors.dimSurface), readable);
}

TEST_P(ContrastTest, MakesALabelOnTheAccentNoWeakerUnderThePointer) {
    const double atRest = contrast(colors.accentForeground, colors.accent);
    for (const double opacity : {0.12, 0.24})
        EXPECT_GT(
            contrast(colors.accentForeground, over(colors.accent, colors.primaryText, opacity)),
            atRest);
}

INSTANTIATE_TEST_SUITE_P(Themes, ContrastTest, testing::ValuesIn(allThemes),
                         [](const auto &row) { return rawValue(row.param).toStdString(); });

} // namespace vantrel
