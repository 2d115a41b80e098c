#include <takeover/TakeoverContext.h>
#include <takeover/TakeoverPhase.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <unordered_set>
#include <vector>

namespace vantrel {
namespace {

using PrimaryAction = TakeoverContext::PrimaryAction;

MeetingLink zoomLink(const QString &url) {
    return MeetingLink::video(MeetingLink::VideoProvider::zoom, *Url::fromString(url));
}

TEST(PrimaryActionTest, IsEqualForTheSameCaseWithAnEqualPayload) {
    EXPECT_EQ(PrimaryAction::join(zoomLink(QStringLiteral("https://zoom.us/j/1"))),
              PrimaryAction::join(zoomLink(QStringLiteral("https://zoom.us/j/1"))));
    EXPECT_EQ(PrimaryAction::call(QStringLiteral("+41 44 1")),
              PrimaryAction::call(QStringLiteral("+41 44 1")));
    EXPECT_EQ(PrimaryAction::headingOver(), PrimaryAction::headingOver());
    EXPECT_EQ(PrimaryAction::acknowledge(), PrimaryAction::acknowledge());
}

TEST(PrimaryActionTest, DiffersByPayload) {
    EXPECT_NE(PrimaryAction::join(zoomLink(QStringLiteral("https://zoom.us/j/1"))),
              PrimaryAction::join(zoomLink(QStringLiteral("https://zoom.us/j/2"))));
    EXPECT_NE(PrimaryAction::call(QStringLiteral("+41 44 1")),
              PrimaryAction::call(QStringLiteral("+41 441")));
}

TEST(PrimaryActionTest, DiffersByCase) {
    const std::vector<PrimaryAction> actions{
        PrimaryAction::join(zoomLink(QStringLiteral("https://zoom.us/j/1"))),
        PrimaryAction::call(QStringLiteral("https://zoom.us/j/1")), PrimaryAction::headingOver(),
        PrimaryAction::acknowledge()};
    for (std::size_t first = 0; first < actions.size(); ++first) {
        for (std::size_t second = first + 1; second < actions.size(); ++second)
            EXPECT_NE(actions[first], actions[second]) << first << " and " << second;
    }
}

TEST(PrimaryActionTest, TellsItsCaseAndHandsOutOnlyItsOwnPayload) {
    const auto join = PrimaryAction::join(zoomLink(QStringLiteral("https://zoom.us/j/1")));
    EXPECT_EQ(join.kind(), PrimaryAction::Kind::join);
    ASSERT_TRUE(join.asJoin());
    EXPECT_EQ(*join.asJoin(), zoomLink(QStringLiteral("https://zoom.us/j/1")));
    EXPECT_FALSE(join.asCall());

    const auto call = PrimaryAction::call(QStringLiteral("044"));
    EXPECT_EQ(call.kind(), PrimaryAction::Kind::call);
    ASSERT_TRUE(call.asCall());
    EXPECT_EQ(*call.asCall(), QStringLiteral("044"));
    EXPECT_FALSE(call.asJoin());

    EXPECT_EQ(PrimaryAction::headingOver().kind(), PrimaryAction::Kind::headingOver);
    EXPECT_EQ(PrimaryAction::acknowledge().kind(), PrimaryAction::Kind::acknowledge);
}

TEST(TakeoverPhaseTest, StartsUrgent) {
    const TakeoverPhaseState state;
    EXPECT_EQ(state.phase.value(), TakeoverPhase::urgent);
}

TEST(TakeoverPhaseTest, TellsItsObserversOfEachChange) {
    TakeoverPhaseState state;
    std::vector<TakeoverPhase> seen;
    const auto subscription =
        state.phase.subscribe([&](TakeoverPhase phase) { seen.push_back(phase); });
    state.phase.set(TakeoverPhase::joined);
    state.phase.set(TakeoverPhase::urgent);
    EXPECT_EQ(seen,
              (std::vector{TakeoverPhase::urgent, TakeoverPhase::joined, TakeoverPhase::urgent}));
}

TEST(TakeoverPhaseTest, CanBeHashed) {
    const std::unordered_set<TakeoverPhase> phases{TakeoverPhase::urgent, TakeoverPhase::joined,
                                                   TakeoverPhase::urgent};
    EXPECT_EQ(phases.size(), 2U);
}

/// The number that an enumeration counts its cases by.
template <typename Case>
std::vector<int> places(std::initializer_list<Case> cases) {
    std::vector<int> found;
    for (const Case each : cases)
        found.push_back(static_cast<int>(each));
    return found;
}

TEST(PrimaryActionTest, ListsItsKindsInOrder) {
    using Kind = TakeoverContext::PrimaryAction::Kind;
    EXPECT_EQ(places({Kind::join, Kind::call, Kind::headingOver, Kind::acknowledge}),
              (std::vector{0, 1, 2, 3}));
}

TEST(TakeoverPhaseTest, ListsItsCasesInOrderAndBeginsWithTheFirst) {
    EXPECT_EQ(places({TakeoverPhase::urgent, TakeoverPhase::joined}), (std::vector{0, 1}));
    EXPECT_EQ(TakeoverPhaseState().phase.value(), TakeoverPhase::urgent);
}

} // namespace
} // namespace vantrel
