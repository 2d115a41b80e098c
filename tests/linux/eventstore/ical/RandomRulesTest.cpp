#include "RandomRule.h"
#include "Seed.h"

#include <linux/eventstore/ical/RuleReadings.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace tests;

/// Every rule is asked for a stretch that begins before, at or far behind its start.
TEST(RandomRules, AgreeWithAModelThatLooksAtEveryDay) {
    std::mt19937 random(seed());
    for (int round = 0; round < 1000; ++round) {
        const RandomRule rule(random);
        const CivilSeconds from =
            rule.start + (static_cast<int>(random() % 2000) - 100) * secondsPerDay;
        const CivilSeconds to = from + static_cast<int>(random() % 400) * secondsPerDay;
        std::vector<CivilSeconds> expected = plainReadings(rule, to);
        std::erase_if(expected, [from](CivilSeconds one) { return one < from; });

        QString problem;
        const auto parsed = RecurrenceRule::parse(rule.text(), problem);
        ASSERT_TRUE(parsed) << rule.text().constData();
        std::optional<CivilSeconds> until;
        if (rule.until > 0)
            until = rule.until;
        int steps = 10'000'000;
        std::vector<CivilSeconds> found;
        RuleReadings(*parsed, rule.start, until).collect(from, to, steps, found);
        ASSERT_EQ(found, expected)
            << "seed " << seed() << ", round " << round << ": " << rule.text().constData()
            << " from " << civilText(rule.start, false).constData() << ", asked from "
            << civilText(from, false).constData() << " to " << civilText(to, false).constData();
    }
}

} // namespace
} // namespace vantrel
