#include <theme/HexColor.h>

#include <gtest/gtest.h>

namespace vantrel {

namespace {

constexpr Color rgb(int red, int green, int blue) {
    return Color{red / 255.0, green / 255.0, blue / 255.0, 1.0};
}

constexpr Color black = rgb(0, 0, 0);
constexpr Color white = rgb(255, 255, 255);

struct Reading {
    const char *circumstance;
    const char16_t *hex;
    Color color;
};

class HexColorTest : public testing::TestWithParam<Reading> {};

} // namespace

TEST_P(HexColorTest, Reads) {
    EXPECT_EQ(colorFromHex(GetParam().hex), GetParam().color);
}

INSTANTIATE_TEST_SUITE_P(
    Table, HexColorTest,
    testing::Values(Reading{"SixDigits", u"E8A04C", rgb(232, 160, 76)},
                    Reading{"SmallLetters", u"e8a04c", rgb(232, 160, 76)},
                    Reading{"SpacesAround", u"  E8A04C  ", rgb(232, 160, 76)},
                    Reading{"LineBreaksAround", u"\r\n\tE8A04C\n", rgb(232, 160, 76)},
                    Reading{"NoBreakSpaceBefore", u"\u00a0E8A04C", rgb(232, 160, 76)},
                    Reading{"PrefixSmall", u"0xE8A04C", rgb(232, 160, 76)},
                    Reading{"PrefixCapital", u"0XE8A04C", rgb(232, 160, 76)},
                    Reading{"PrefixTwice", u"0x0xE8A04C", black},
                    Reading{"PrefixAlone", u"0x", black}, Reading{"Empty", u"", black},
                    Reading{"OnlySpace", u" \n ", black}, Reading{"NumberSign", u"#E8A04C", black},
                    Reading{"MinusSign", u"-E8A04C", black}, Reading{"Word", u"honey", black},
                    Reading{"TrailingJunk", u"E8A04C;", rgb(232, 160, 76)},
                    Reading{"SpaceWithin", u"E8 A04C", rgb(0, 0, 0xE8)},
                    Reading{"ThreeDigits", u"F0A", rgb(0, 0x0F, 0x0A)},
                    Reading{"EightDigitsDropTheFirstTwo", u"80E8A04C", rgb(232, 160, 76)},
                    Reading{"SixteenDigitsStillFit", u"1234567812E8A04C", rgb(232, 160, 76)},
                    Reading{"SeventeenDigitsOverflow", u"11111111111E8A04C", white},
                    Reading{"LeadingZeroesNeverOverflow", u"00000000000000000000E8A04C",
                            rgb(232, 160, 76)},
                    Reading{"FullWidthDigitsAreNoDigits", u"\uff11\uff12\uff13", black}),
    [](const auto &row) { return std::string(row.param.circumstance); });

} // namespace vantrel
