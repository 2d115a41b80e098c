#include <menubar/EmptyStateLine.h>

#include <gtest/gtest.h>

#include <limits>

namespace vantrel {
namespace {

TEST(EmptyStateLine, TakesTheLineFromTheListOfTheMode) {
    const auto line = &EmptyStateLine::line;
    EXPECT_EQ(line(EventListMode::today, 0), u"all clear today");
    EXPECT_EQ(line(EventListMode::today, 1), u"nothing on the books");
    EXPECT_EQ(line(EventListMode::today, 2), u"Tobble's keeping watch");
    EXPECT_EQ(line(EventListMode::all, 0), u"calendar's quiet");
    EXPECT_EQ(line(EventListMode::all, 1), u"no meetings in the next two weeks");
    EXPECT_EQ(line(EventListMode::all, 2), u"Tobble's resting easy");
}

TEST(EmptyStateLine, CountsAnyNumberByThree) {
    const auto largest = std::numeric_limits<std::int64_t>::max() - 1;
    ASSERT_EQ(largest % 3, 0);
    EXPECT_EQ(EmptyStateLine::line(EventListMode::today, largest), u"all clear today");
    EXPECT_EQ(EmptyStateLine::line(EventListMode::all, 5), u"Tobble's resting easy");
}

TEST(EmptyStateLine, DrawsOneNumberForTheWholeRun) {
    const std::int64_t number = EmptyStateLine::numberOfThisProcess();
    EXPECT_GE(number, 0);
    EXPECT_LT(number, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(EmptyStateLine::numberOfThisProcess(), number);
}

} // namespace
} // namespace vantrel
