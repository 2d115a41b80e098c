// The tables are compared with libphonenumber itself, which the program does not carry.

#include <links/NumberingPlan.h>

#include <QLocale>

#include <gtest/gtest.h>
#include <phonenumbers/phonenumberutil.h>

#include <random>
#include <string>
#include <vector>

namespace vantrel {
namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

bool accepts(DialledDigits dialled, const std::string &digits) {
    for (const char digit : digits)
        dialled.add(digit - '0');
    return dialled.isNumber();
}

std::string digitsOf(const std::string &text) {
    std::string digits;
    for (const char c : text) {
        if (c >= '0' && c <= '9')
            digits += c;
    }
    return digits;
}

std::vector<std::string> regions() {
    std::set<std::string> all;
    PhoneNumberUtil::GetInstance()->GetSupportedRegions(&all);
    return {all.begin(), all.end()};
}

const PhoneNumberUtil &util() {
    return *PhoneNumberUtil::GetInstance();
}

std::vector<PhoneNumber> examplesOf(const std::string &region) {
    std::vector<PhoneNumber> numbers;
    for (const auto type :
         {PhoneNumberUtil::FIXED_LINE, PhoneNumberUtil::MOBILE, PhoneNumberUtil::TOLL_FREE,
          PhoneNumberUtil::SHARED_COST, PhoneNumberUtil::VOIP, PhoneNumberUtil::UAN}) {
        PhoneNumber number;
        if (util().GetExampleNumberForType(region, type, &number))
            numbers.push_back(number);
    }
    return numbers;
}

std::string formatted(const PhoneNumber &number, PhoneNumberUtil::PhoneNumberFormat format) {
    std::string text;
    util().Format(number, format, &text);
    return digitsOf(text);
}

TEST(NumberingPlan, HoldsTheExamplesOfEveryRegionAndKind) {
    int checked = 0;
    for (const std::string &region : regions()) {
        SCOPED_TRACE(region);
        const auto territory = QLocale::codeToTerritory(QString::fromStdString(region));
        for (const PhoneNumber &number : examplesOf(region)) {
            const std::string international = formatted(number, PhoneNumberUtil::E164);
            EXPECT_TRUE(accepts(DialledDigits::afterPlus(), international)) << international;
            // Qt knows no territory of that code, or the number is written with an inserted "15".
            const bool isArgentineMobile = region == "AR" && international.starts_with("549");
            if (territory == QLocale::AnyTerritory || isArgentineMobile)
                continue;
            const std::string national = formatted(number, PhoneNumberUtil::NATIONAL);
            EXPECT_TRUE(accepts(NumberingPlan(territory).dialled(), national)) << national;
            ++checked;
        }
    }
    EXPECT_GT(checked, 700);
}

/// An example with some digits changed, and now and then one more or one less.
std::string changed(std::string digits, int round, std::mt19937 &random) {
    for (int change = 0; change < 1 + round % 4; ++change)
        digits[random() % digits.size()] = static_cast<char>('0' + random() % 10);
    if (round % 10 == 0)
        digits += static_cast<char>('0' + random() % 10);
    if (round % 10 == 1)
        digits.pop_back();
    return digits;
}

TEST(NumberingPlan, AgreesOnChangedExamplesOfEveryRegion) {
    constexpr unsigned seed = 20240513;
    constexpr int rounds = 100;
    std::mt19937 random(seed);
    int valid = 0;
    for (const std::string &region : regions()) {
        for (const PhoneNumber &number : examplesOf(region)) {
            const std::string example = formatted(number, PhoneNumberUtil::E164);
            for (int round = 0; round < rounds; ++round) {
                const std::string digits = changed(example, round, random);
                PhoneNumber parsed;
                const bool isValid = util().Parse("+" + digits, "ZZ", &parsed) ==
                                         PhoneNumberUtil::NO_PARSING_ERROR &&
                                     util().IsValidNumber(parsed);
                // Parsing strips trunk prefixes that stand behind a calling code by mistake.
                if (isValid && formatted(parsed, PhoneNumberUtil::E164) != digits)
                    continue;
                valid += isValid ? 1 : 0;
                EXPECT_EQ(accepts(DialledDigits::afterPlus(), digits), isValid)
                    << region << " +" << digits << ", seed " << seed;
            }
        }
    }
    EXPECT_GT(valid, 10'000);
}

TEST(NumberingPlan, OfATerritoryWithoutOneIsAmerican) {
    for (const auto territory : {QLocale::AnyTerritory, QLocale::Antarctica, QLocale::World}) {
        EXPECT_TRUE(NumberingPlan(territory).isNorthAmerican());
        EXPECT_TRUE(accepts(NumberingPlan(territory).dialled(), "4155552671"));
    }
    EXPECT_FALSE(NumberingPlan(QLocale::Switzerland).isNorthAmerican());
    EXPECT_TRUE(NumberingPlan(QLocale::Canada).isNorthAmerican());
}

TEST(NumberingPlan, TellsWhenDigitsLeadNowhere) {
    DialledDigits dialled = DialledDigits::afterPlus();
    EXPECT_FALSE(dialled.isDeadEnd());
    dialled.add(0); // no calling code starts so
    EXPECT_TRUE(dialled.isDeadEnd());
    for (int digit = 0; digit < 10; ++digit)
        dialled.add(digit);
    EXPECT_TRUE(dialled.isDeadEnd());
    EXPECT_FALSE(dialled.isNumber());
}

} // namespace
} // namespace vantrel
