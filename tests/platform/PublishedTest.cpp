#include <platform/Published.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(Published, GivesASubscriberTheCurrentValueAtOnce) {
    Published<int> value(7);
    std::vector<int> seen;
    const auto subscription = value.subscribe([&](int next) { seen.push_back(next); });
    EXPECT_EQ(seen, std::vector{7});
}

TEST(Published, TellsOfANewValueBeforeItIsStored) {
    Published<int> value(7);
    std::vector<int> stored;
    const auto subscription = value.subscribe([&](int) { stored.push_back(value.value()); });
    value.set(8);
    EXPECT_EQ(stored, (std::vector{7, 7}));
    EXPECT_EQ(value.value(), 8);
}

TEST(Published, TellsOfAValueThatEqualsTheOld) {
    Published<int> value(7);
    int calls = 0;
    const auto subscription = value.subscribe([&](int) { ++calls; });
    value.set(7);
    EXPECT_EQ(calls, 2);
}

TEST(Published, IsSilentOnceTheSubscriptionIsDropped) {
    Published<int> value(7);
    int calls = 0;
    auto subscription = value.subscribe([&](int) { ++calls; });
    subscription.reset();
    value.set(8);
    EXPECT_EQ(calls, 1);
}

TEST(Announcer, LetsASubscriberDropItselfAndOthersWhileItIsCalled) {
    Announcer<> announcer;
    Subscription first;
    Subscription second;
    int firstCalls = 0;
    int secondCalls = 0;
    first = announcer.subscribe([&] {
        ++firstCalls;
        first.reset();
        second.reset();
    });
    second = announcer.subscribe([&] { ++secondCalls; });
    announcer.announce();
    announcer.announce();
    EXPECT_EQ(firstCalls, 1);
    EXPECT_EQ(secondCalls, 0);
}

TEST(Announcer, FirstCallsASubscriberThatJoinedDuringACallAtTheNextOne) {
    Announcer<> announcer;
    Subscription late;
    int lateCalls = 0;
    const auto subscription = announcer.subscribe([&] {
        if (!late)
            late = announcer.subscribe([&] { ++lateCalls; });
    });
    announcer.announce();
    EXPECT_EQ(lateCalls, 0);
    announcer.announce();
    EXPECT_EQ(lateCalls, 1);
}

TEST(Announcer, MayBeOutlivedByASubscription) {
    Subscription subscription;
    {
        Announcer<> announcer;
        subscription = announcer.subscribe([] {});
    }
    subscription.reset();
    SUCCEED();
}

} // namespace
} // namespace vantrel
