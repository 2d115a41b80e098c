#include <preferences/ValueTexts.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(ValueTexts, SayHowEarlyAMeetingIsFetched) {
    EXPECT_EQ(leadTimeText(0), u"at start");
    EXPECT_EQ(leadTimeText(60), u"1 min before");
    EXPECT_EQ(leadTimeText(119), u"1 min before");
    EXPECT_EQ(leadTimeText(240), u"4 min before");
    EXPECT_EQ(leadTimeText(300), u"5 min before");
    EXPECT_EQ(leadTimeText(1000), u"16 min before");
}

TEST(ValueTexts, SayHowLongASnoozeIs) {
    EXPECT_EQ(snoozeDurationText(1), u"1 min");
    EXPECT_EQ(snoozeDurationText(2), u"2 min");
    EXPECT_EQ(snoozeDurationText(15), u"15 min");
}

TEST(ValueTexts, SayWhenATakeoverClosesByItself) {
    EXPECT_EQ(autoCloseText(0), u"off");
    EXPECT_EQ(autoCloseText(300), u"5 min");
    EXPECT_EQ(autoCloseText(3599), u"59 min");
    EXPECT_EQ(autoCloseText(3600), u"1 hour");
    EXPECT_EQ(autoCloseText(3659), u"1 hour");
    EXPECT_EQ(autoCloseText(3660), u"61 min");
}

TEST(ValueTexts, SayHowFarAheadTheMenuBarLooks) {
    EXPECT_EQ(upcomingHorizonText(30), u"30 min");
    EXPECT_EQ(upcomingHorizonText(59), u"59 min");
    EXPECT_EQ(upcomingHorizonText(60), u"1 hour");
    EXPECT_EQ(upcomingHorizonText(90), u"1 hour 30 min");
    EXPECT_EQ(upcomingHorizonText(119), u"1 hour 59 min");
    EXPECT_EQ(upcomingHorizonText(120), u"2 hours");
    EXPECT_EQ(upcomingHorizonText(150), u"2 hours 30 min");
    EXPECT_EQ(upcomingHorizonText(480), u"8 hours");
}

} // namespace
} // namespace vantrel
