#include "RandomLife.h"

#include <QLoggingCategory>

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>

namespace vantrel::simulation {
namespace {

constexpr std::uint64_t lives = 200;
constexpr std::size_t shownLines = 12;

/// The run with one seed: VANTREL_SIMULATION_SEED=17.
std::optional<std::uint64_t> wantedSeed() {
    const char *seed = std::getenv("VANTREL_SIMULATION_SEED");
    return seed ? std::optional(std::stoull(seed)) : std::nullopt;
}

std::string lastLines(const std::vector<QString> &log) {
    std::string text;
    const std::size_t first = log.size() > shownLines ? log.size() - shownLines : 0;
    for (std::size_t line = first; line < log.size(); ++line)
        text += "\n  " + log[line].toStdString();
    return text;
}

class TakeoverSimulationTest : public testing::Test {
protected:
    // The log of rescues is kept in memory; that it cannot be saved is no news.
    static void SetUpTestSuite() {
        QLoggingCategory::setFilterRules(QStringLiteral("org.vantrel.Vantrel.*=false"));
    }

    void live(std::uint64_t seed) {
        RandomLife life(seed);
        const auto difference = life.live();
        EXPECT_FALSE(difference) << "seed " << seed
                                 << " (run again with VANTREL_SIMULATION_SEED=" << seed
                                 << "), microseconds of uptime " << difference->toStdString()
                                 << "\nBy the rules, up to here:" << lastLines(life.log());
        for (const QString &line : life.log())
            ++happened[line.section(QLatin1Char(' '), 1, 1)];
    }

    std::map<QString, std::size_t> happened;
};

TEST_F(TakeoverSimulationTest, AgreesWithTheRulesThroughRandomLives) {
    const auto only = wantedSeed();
    const std::uint64_t first = only.value_or(1);
    const std::uint64_t last = only.value_or(lives);
    for (std::uint64_t seed = first; seed <= last && !HasFailure(); ++seed)
        live(seed);
    std::cout << "seeds " << first << " to " << last << ":";
    for (const auto &[what, count] : happened)
        std::cout << ' ' << count << ' ' << what.toStdString();
    std::cout << '\n';
    if (only || HasFailure())
        return;
    // Lives in which little happens would agree on nothing.
    EXPECT_GT(happened[QStringLiteral("show")], 20 * lives);
    EXPECT_GT(happened[QStringLiteral("open")], 2 * lives);
    EXPECT_GT(happened[QStringLiteral("rescue")], 4 * lives);
    EXPECT_GT(happened[QStringLiteral("snooze")], 4 * lives);
    EXPECT_GT(happened[QStringLiteral("dismiss")], 4 * lives);
}

} // namespace
} // namespace vantrel::simulation
