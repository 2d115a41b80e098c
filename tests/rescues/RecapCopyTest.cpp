#include <rescues/RecapCopy.h>

#include <gtest/gtest.h>

#include <limits>

namespace vantrel {
namespace {

TEST(RecapCopyTest, SaysOneTimeAndManyTimes) {
    EXPECT_EQ(RecapCopy::tobbleFetched(0).lead, u"Tobble fetched you");
    EXPECT_EQ(RecapCopy::tobbleFetched(0).tail, u"0 times this week.");
    EXPECT_EQ(RecapCopy::tobbleFetched(1).tail, u"1 time this week.");
    EXPECT_EQ(RecapCopy::tobbleFetched(2).tail, u"2 times this week.");
    EXPECT_EQ(RecapCopy::tobbleFetched(1234567).tail, u"1234567 times this week.");
}

TEST(RecapCopyTest, SaysOneFriendAndManyFriends) {
    EXPECT_EQ(RecapCopy::youFetched(1).lead, u"You fetched");
    EXPECT_EQ(RecapCopy::youFetched(0).tail, u"0 friends.");
    EXPECT_EQ(RecapCopy::youFetched(1).tail, u"1 friend.");
    EXPECT_EQ(RecapCopy::youFetched(3).tail, u"3 friends.");
}

TEST(RecapCopyTest, ChoosesTheFlourishByTheWeeksRescues) {
    EXPECT_EQ(RecapCopy::flourish(0), std::nullopt);
    for (const int count : {1, 4})
        EXPECT_EQ(RecapCopy::flourish(count), u"Tobble made the rounds.") << count;
    for (const int count : {5, 14})
        EXPECT_EQ(RecapCopy::flourish(count), u"A good week of fetches.") << count;
    EXPECT_EQ(RecapCopy::flourish(15), u"Tobble is rolling in honey.");
    EXPECT_EQ(RecapCopy::flourish(std::numeric_limits<std::int64_t>::max()),
              u"Tobble is rolling in honey.");
}

TEST(RecapCopyTest, HasNoLineForWhatDidNotHappen) {
    EXPECT_EQ(RecapCopy::takeoverLine(0), std::nullopt);
    EXPECT_EQ(RecapCopy::popoverLine(0), std::nullopt);
    EXPECT_EQ(RecapCopy::snoozeLine(0), std::nullopt);
    EXPECT_EQ(RecapCopy::dismissLine(0), std::nullopt);
    EXPECT_EQ(RecapCopy::dismissLine(-1), std::nullopt);
}

TEST(RecapCopyTest, CountsEachKindInItsOwnWords) {
    EXPECT_EQ(RecapCopy::takeoverLine(1), u"1 from the takeover");
    EXPECT_EQ(RecapCopy::takeoverLine(12), u"12 from the takeover");
    EXPECT_EQ(RecapCopy::popoverLine(1), u"1 from the popover");
    EXPECT_EQ(RecapCopy::popoverLine(3), u"3 from the popover");
    EXPECT_EQ(RecapCopy::snoozeLine(1), u"1 snooze");
    EXPECT_EQ(RecapCopy::snoozeLine(2), u"2 snoozes");
    EXPECT_EQ(RecapCopy::dismissLine(1), u"1 dismiss");
    EXPECT_EQ(RecapCopy::dismissLine(2), u"2 dismisses");
}

} // namespace
} // namespace vantrel
