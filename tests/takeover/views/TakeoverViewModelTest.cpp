#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <takeover/TakeoverViewModel.h>

#include <gtest/gtest.h>

#include <memory>

namespace vantrel {

namespace {

using PrimaryAction = TakeoverContext::PrimaryAction;

class TakeoverViewModelTest : public testing::Test {
protected:
    TakeoverViewModelTest() {
        context.title = QStringLiteral("Standup");
        context.startsAt = fakes::at("2026-03-02T09:00:00");
        context.endsAt = fakes::at("2026-03-02T09:30:00");
    }

    TakeoverViewModel &shownAt(const char *time) {
        queue.jumpWallTo(fakes::at(time));
        return shown();
    }

    TakeoverViewModel &shown() {
        viewModel = std::make_unique<TakeoverViewModel>(
            context, phaseState, queue,
            TakeoverViewModel::Actions{[this] { ++joins; }, [this] { ++snoozes; },
                                       [this] { ++dismissals; }});
        QObject::connect(viewModel.get(), &TakeoverViewModel::countdownTextChanged,
                         [this] { ++textChanges; });
        return *viewModel;
    }

    QString labelFor(PrimaryAction action) {
        context.primaryAction = std::move(action);
        return shown().primaryActionLabel();
    }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:59:00")};
    TakeoverPhaseState phaseState;
    TakeoverContext context;
    std::unique_ptr<TakeoverViewModel> viewModel;
    int textChanges = 0;
    int joins = 0;
    int snoozes = 0;
    int dismissals = 0;
};

} // namespace

TEST_F(TakeoverViewModelTest, CountsDownFromAFullMinuteSecondBySecond) {
    const TakeoverViewModel &model = shown();
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 1:00"));
    queue.advance(Seconds{0.999});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 1:00"));
    queue.advance(Seconds{0.001});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 0:59"));
    queue.advance(Seconds{1.0});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 0:58"));
}

TEST_F(TakeoverViewModelTest, TicksCountedFromShowing) {
    const TakeoverViewModel &model = shownAt("2026-03-02T08:59:00.300");
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 1:00"));
    queue.advance(Seconds{0.7});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 1:00"));
    queue.advance(Seconds{0.3});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 0:59"));
}

TEST_F(TakeoverViewModelTest, SaysRollingNowFromTheStartOn) {
    const TakeoverViewModel &model = shownAt("2026-03-02T08:59:58");
    queue.advance(Seconds{1.0});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 0:01"));
    queue.advance(Seconds{1.0});
    EXPECT_EQ(model.countdownText(), QStringLiteral("rolling now"));
}

TEST_F(TakeoverViewModelTest, SaysRollingNowAtOnceWhenShownLate) {
    EXPECT_EQ(shownAt("2026-03-02T09:03:00").countdownText(), QStringLiteral("rolling now"));
}

TEST_F(TakeoverViewModelTest, SaysWrappedUpFromTheEndOn) {
    const TakeoverViewModel &model = shownAt("2026-03-02T09:29:59");
    EXPECT_EQ(model.countdownText(), QStringLiteral("rolling now"));
    queue.advance(Seconds{1.0});
    EXPECT_EQ(model.countdownText(), QStringLiteral("wrapped up"));
}

TEST_F(TakeoverViewModelTest, SaysWrappedUpForAMeetingWithoutLengthOnceItHasStarted) {
    context.endsAt = context.startsAt;
    EXPECT_EQ(shownAt("2026-03-02T09:00:00").countdownText(), QStringLiteral("wrapped up"));
}

TEST_F(TakeoverViewModelTest, ReadsTheClockAtEachTickSoThatAClockSetIsFollowed) {
    const TakeoverViewModel &model = shown();
    queue.jumpWallTo(fakes::at("2026-03-02T08:55:01"));
    queue.advance(Seconds{1.0});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 4:58"));
}

TEST_F(TakeoverViewModelTest, AnnouncesTheTextOnlyWhenItChanges) {
    shownAt("2026-03-02T09:10:00");
    queue.advance(Seconds{60.0});
    EXPECT_EQ(textChanges, 0);
    queue.advance(Seconds{1140.0});
    EXPECT_EQ(textChanges, 1);
}

TEST_F(TakeoverViewModelTest, StopsTickingOnceJoined) {
    const TakeoverViewModel &model = shown();
    phaseState.phase.set(TakeoverPhase::joined);
    EXPECT_TRUE(model.isJoined());
    EXPECT_EQ(queue.pendingCount(), 0U);
    queue.advance(Seconds{5.0});
    EXPECT_EQ(textChanges, 0);
}

TEST_F(TakeoverViewModelTest, CountsOnWhenThePhaseIsUrgentAgain) {
    const TakeoverViewModel &model = shown();
    phaseState.phase.set(TakeoverPhase::joined);
    queue.advance(Seconds{5.0});
    phaseState.phase.set(TakeoverPhase::urgent);
    EXPECT_FALSE(model.isJoined());
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 0:55"));
    queue.advance(Seconds{1.0});
    EXPECT_EQ(model.countdownText(), QStringLiteral("starts in 0:54"));
}

TEST_F(TakeoverViewModelTest, IsJoinedFromTheStartInAPhaseThatIs) {
    phaseState.phase.set(TakeoverPhase::joined);
    EXPECT_TRUE(shown().isJoined());
}

TEST_F(TakeoverViewModelTest, AnnouncesThePhaseOnlyWhenItChanges) {
    int changes = 0;
    QObject::connect(&shown(), &TakeoverViewModel::isJoinedChanged, [&] { ++changes; });
    phaseState.phase.set(TakeoverPhase::urgent);
    EXPECT_EQ(changes, 0);
    phaseState.phase.set(TakeoverPhase::joined);
    phaseState.phase.set(TakeoverPhase::joined);
    EXPECT_EQ(changes, 1);
}

TEST_F(TakeoverViewModelTest, LeavesNothingWaitingWhenItIsGone) {
    shown();
    viewModel.reset();
    EXPECT_EQ(queue.pendingCount(), 0U);
    phaseState.phase.set(TakeoverPhase::joined);
}

TEST_F(TakeoverViewModelTest, NamesThePrimaryAction) {
    EXPECT_EQ(labelFor(PrimaryAction::join(MeetingLink::phone(QStringLiteral("1")))),
              QStringLiteral("Join"));
    EXPECT_EQ(labelFor(PrimaryAction::call(QStringLiteral("+41 44 000 00 00"))),
              QStringLiteral("Call"));
    EXPECT_EQ(labelFor(PrimaryAction::headingOver()), QStringLiteral("Heading over"));
    EXPECT_EQ(labelFor(PrimaryAction::acknowledge()), QStringLiteral("Got it"));
}

TEST_F(TakeoverViewModelTest, HandsOnWhatTheButtonsAsk) {
    const TakeoverViewModel &model = shown();
    model.join();
    model.snooze();
    model.dismiss();
    EXPECT_EQ(joins, 1);
    EXPECT_EQ(snoozes, 1);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(TakeoverViewModelTest, IsAnnouncedWithTitleAndCountdownOnce) {
    const TakeoverViewModel &model = shown();
    EXPECT_EQ(model.announcement(), QStringLiteral("Standup, starts in 1:00"));
    queue.advance(Seconds{10.0});
    EXPECT_EQ(model.announcement(), QStringLiteral("Standup, starts in 1:00"));
}

TEST_F(TakeoverViewModelTest, IsAnnouncedWithTheCountdownAloneWithoutATitle) {
    context.title.clear();
    EXPECT_EQ(shown().announcement(), QStringLiteral("starts in 1:00"));
}

TEST_F(TakeoverViewModelTest, GivesTheCopyLineWhenThereIsOne) {
    EXPECT_EQ(shown().copyLine(), QString());
    context.copyLine = QStringLiteral("Back to it.");
    EXPECT_EQ(shown().copyLine(), QStringLiteral("Back to it."));
}

} // namespace vantrel
