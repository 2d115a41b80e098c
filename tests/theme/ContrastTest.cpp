#include <theme/Theme.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

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

class ContrastTest : public testing::TestWithParam<Theme> {
protected:
    Palette colors = palette(GetParam());
};

/// What WCAG 2 asks of text, level AA, and of large text, level AAA.
constexpr double readable = 4.5;
constexpr double comfortable = 7.0;

} // namespace

TEST_P(ContrastTest, MakesTheTextsReadable) {
    EXPECT_GE(contrast(colors.primaryText, colors.surfaceBackground), comfortable);
    EXPECT_GE(contrast(colors.primaryText, colors.dimSurface), comfortable);
    EXPECT_GE(contrast(colors.secondaryText, colors.surfaceBackground), readable);
}

TEST_P(ContrastTest, KeepsTheQuietButtonsReadableThroughTheirOpacity) {
    Color label = colors.primaryText;
    label.alpha = 0.85;
    EXPECT_GE(contrast(label, colors.surfaceBackground), comfortable);
    EXPECT_GE(contrast(label, colors.dimSurface), readable);
}

TEST_P(ContrastTest, MakesTheLabelOnTheAccentReadableInEveryThemeButHearth) {
    const double found = contrast(colors.accentForeground, colors.accent);
    // White on honey is the brand's own and weak; the label is set large and bold for it.
    if (GetParam() == Theme::hearth)
        EXPECT_NEAR(found, 2.2, 0.05);
    else
        EXPECT_GE(found, readable);
}

INSTANTIATE_TEST_SUITE_P(Themes, ContrastTest, testing::ValuesIn(allThemes),
                         [](const auto &row) { return rawValue(row.param).toStdString(); });

} // namespace vantrel
