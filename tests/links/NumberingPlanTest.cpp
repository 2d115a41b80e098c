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

class NumberingPlanOf : public testing::TestWithParam<std::string> {
protected:
    const PhoneNumberUtil &m_util = *PhoneNumberUtil::GetInstance();
    const std::string m_region = GetParam();

    [[nodiscard]] std::vector<PhoneNumber> examples() const {
        std::vector<PhoneNumber> numbers;
        for (const auto type :
             {PhoneNumberUtil::FIXED_LINE, PhoneNumberUtil::MOBILE, PhoneNumberUtil::TOLL_FREE,
              PhoneNumberUtil::SHARED_COST, PhoneNumberUtil::VOIP, PhoneNumberUtil::UAN}) {
            PhoneNumber number;
            if (m_util.GetExampleNumberForType(m_region, type, &number))
                numbers.push_back(number);
        }
        return numbers;
    }

    [[nodiscard]] std::string formatted(const PhoneNumber &number,
                                        PhoneNumberUtil::PhoneNumberFormat format) const {
        std::string text;
        m_util.Format(number, format, &text);
        return digitsOf(text);
    }
};

TEST_P(NumberingPlanOf, HoldsTheExamplesOfEveryKind) {
    const auto territory = QLocale::codeToTerritory(QString::fromStdString(m_region));
    for (const PhoneNumber &number : examples()) {
        const std::string international = formatted(number, PhoneNumberUtil::E164);
        EXPECT_TRUE(accepts(DialledDigits::afterPlus(), international)) << international;
        // Qt knows no territory of that code, or the number is written with an inserted "15".
        const bool isArgentineMobile = m_region == "AR" && international.starts_with("549");
        if (territory == QLocale::AnyTerritory || isArgentineMobile)
            continue;
        const std::string national = formatted(number, PhoneNumberUtil::NATIONAL);
        EXPECT_TRUE(accepts(NumberingPlan(territory).dialled(), national)) << national;
    }
}

TEST_P(NumberingPlanOf, AgreesOnChangedExamples) {
    constexpr unsigned seed = 20240513;
    std::mt19937 random(seed);
    int differences = 0;
    for (const PhoneNumber &number : examples()) {
        const std::string example = formatted(number, PhoneNumberUtil::E164);
        for (int round = 0; round < 200; ++round) {
            std::string digits = example;
            for (int change = 0; change < 1 + round % 4; ++change)
                digits[random() % digits.size()] = static_cast<char>('0' + random() % 10);
            if (round % 10 == 0)
                digits += static_cast<char>('0' + random() % 10);
            if (round % 10 == 1)
                digits.pop_back();
            PhoneNumber parsed;
            const bool isValid =
                m_util.Parse("+" + digits, "ZZ", &parsed) == PhoneNumberUtil::NO_PARSING_ERROR &&
                m_util.IsValidNumber(parsed);
            // Parsing strips trunk prefixes that stand behind a calling code by mistake.
            if (isValid && formatted(parsed, PhoneNumberUtil::E164) != digits)
                continue;
            if (accepts(DialledDigits::afterPlus(), digits) != isValid) {
                ++differences;
                ADD_FAILURE() << "+" << digits << (isValid ? " is" : " is not") << " valid, seed "
                              << seed;
            }
        }
    }
    EXPECT_EQ(differences, 0);
}

INSTANTIATE_TEST_SUITE_P(World, NumberingPlanOf, testing::ValuesIn(regions()),
                         [](const auto &row) { return row.param; });

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
