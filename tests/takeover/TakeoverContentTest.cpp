#include "SchedulerFixture.h"

#include <theme/Theme.h>
#include <theme/ThemePalette.h>

#include <ostream>

namespace vantrel {
namespace {

/// What a takeover shows, and what its answers do. It is Tuesday, so that no rule of Monday's or
/// Friday's takes precedence.
class TakeoverContentTest : public SchedulerFixture {
protected:
    TakeoverContentTest() { queue.jumpWallTo(local("2026-03-03T08:00:00")); }

    /// The takeover that comes one minute before nine.
    TakeoverViewModel *takeoverAtNine() {
        scheduler->refresh();
        runTo("2026-03-03T08:59:00");
        const auto panel = interactivePanel(panels);
        return panel ? viewModelOf(*panel) : nullptr;
    }

    StoreEvent &addAtNine() { return add("Planning", local("2026-03-03T09:00:00")); }

    QString copyLineAtNine() {
        TakeoverViewModel *takeover = takeoverAtNine();
        return takeover ? takeover->copyLine() : QStringLiteral("no takeover");
    }
};

TEST_F(TakeoverContentTest, ShowsTheMeetingsTitleAndCountsDownToItsStart) {
    preferences.setAutoCloseSeconds(0);
    addAtNine();
    TakeoverViewModel *takeover = takeoverAtNine();
    ASSERT_TRUE(takeover);
    EXPECT_EQ(takeover->title(), QStringLiteral("Planning"));
    EXPECT_EQ(takeover->countdownText(), QStringLiteral("starts in 1:00"));
    runTo("2026-03-03T09:29:59");
    EXPECT_EQ(takeover->countdownText(), QStringLiteral("rolling now"));
    runTo("2026-03-03T09:30:01");
    EXPECT_EQ(takeover->countdownText(), QStringLiteral("wrapped up"));
}

TEST_F(TakeoverContentTest, ShowsAMeetingWithoutTitle) {
    addAtNine().title.reset();
    TakeoverViewModel *takeover = takeoverAtNine();
    ASSERT_TRUE(takeover);
    EXPECT_EQ(takeover->title(), QStringLiteral("(no title)"));
}

TEST_F(TakeoverContentTest, IsDrawnInHearthWhateverThemeIsSelected) {
    addAtNine();
    preferences.setSelectedTheme(Theme::dusk);
    ASSERT_TRUE(takeoverAtNine());
    const QVariant drawnIn =
        interactivePanel(panels)->content.properties.value(QStringLiteral("themePalette"));
    EXPECT_TRUE(drawnIn.value<ThemePalette>() == ThemePalette(palette(Theme::hearth)));
}

// The main button

struct ActionRow {
    const char *name;
    const char *url;
    const char *location;
    const char *notes;
    const char *label;
    std::vector<const char *> opened;
};

void PrintTo(const ActionRow &row, std::ostream *out) {
    *out << row.name;
}

class PrimaryActionOfAnEventTest : public TakeoverContentTest,
                                   public testing::WithParamInterface<ActionRow> {};

TEST_P(PrimaryActionOfAnEventTest, IsTheFirstThatTheEventAllows) {
    StoreEvent &event = addAtNine();
    if (GetParam().url)
        event.url = Url::fromString(QString::fromUtf8(GetParam().url));
    if (GetParam().location)
        event.location = QString::fromUtf8(GetParam().location);
    if (GetParam().notes)
        event.notes = QString::fromUtf8(GetParam().notes);
    TakeoverViewModel *takeover = takeoverAtNine();
    ASSERT_TRUE(takeover);
    EXPECT_EQ(takeover->primaryActionLabel(), QString::fromUtf8(GetParam().label));

    press(Key::enter);
    std::vector<fakes::RecordingWorkspace::Opened> expected;
    for (const char *url : GetParam().opened)
        expected.push_back({QString::fromUtf8(url), std::nullopt});
    EXPECT_EQ(workspace.opened, expected);
    EXPECT_EQ(today().rescuesFromTakeover, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Events, PrimaryActionOfAnEventTest,
    testing::Values(ActionRow{"VideoBeatsAPhoneNumberAndAPlace",
                              nullptr,
                              "Room 5",
                              "https://zoom.us/j/123 or +41 44 668 18 00",
                              "Join",
                              {"https://zoom.us/j/123"}},
                    ActionRow{"VideoInTheUrl",
                              "https://meet.google.com/abc-defg-hij",
                              nullptr,
                              nullptr,
                              "Join",
                              {"https://meet.google.com/abc-defg-hij"}},
                    ActionRow{"PhoneNumberBeatsAPlace",
                              nullptr,
                              "Room 5",
                              "Dial +41 44 668 18 00",
                              "Call",
                              {"tel:+41446681800"}},
                    ActionRow{"Place", nullptr, "Room 5", nullptr, "Heading over", {}},
                    ActionRow{
                        "PlaceOfWhiteSpaceOnly", nullptr, " \t\r\n \n", nullptr, "Got it", {}},
                    ActionRow{"EmptyPlace", nullptr, "", nullptr, "Got it", {}},
                    ActionRow{"Nothing", nullptr, nullptr, "Bring cake", "Got it", {}}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(TakeoverContentTest, OpensTheLinkInTheChosenTargetAndThenRunsTheShortcut) {
    addAtNine().url = Url::fromString(QStringLiteral("https://zoom.us/j/123"));
    preferences.setJoinTarget(JoinTarget::defaultBrowser);
    preferences.setShortcutOnJoin(QStringLiteral("Lights"));
    workspace.browser = ApplicationId{QStringLiteral("browser.desktop")};
    ASSERT_TRUE(takeoverAtNine());
    press(Key::space);
    ASSERT_EQ(workspace.opened.size(), 2U);
    EXPECT_EQ(workspace.opened[0], (fakes::RecordingWorkspace::Opened{
                                       QStringLiteral("https://zoom.us/j/123"),
                                       ApplicationId{QStringLiteral("browser.desktop")}}));
    EXPECT_TRUE(workspace.opened[1].url.endsWith(QStringLiteral("Lights")));
}

TEST_F(TakeoverContentTest, OpensTheLinkBeforeItCountsTheRescue) {
    addAtNine().url = Url::fromString(QStringLiteral("https://zoom.us/j/123"));
    ASSERT_TRUE(takeoverAtNine());
    std::vector<std::size_t> openedAtCount;
    const auto subscription = rescueLog.subscribe(
        [&](const DayBuckets &) { openedAtCount.push_back(workspace.opened.size()); });
    press(Key::space);
    EXPECT_EQ(openedAtCount, (std::vector<std::size_t>{0, 1}));
}

TEST_F(TakeoverContentTest, OpensTheLinkOnceAndCountsOneRescueWhenJoinIsPressedTwice) {
    addAtNine().url = Url::fromString(QStringLiteral("https://zoom.us/j/123"));
    ASSERT_TRUE(takeoverAtNine());
    press(Key::space);
    press(Key::space);
    queue.advance(Seconds{1});
    press(Key::enter);
    EXPECT_EQ(workspace.opened.size(), 1U);
    EXPECT_EQ(today().rescuesFromTakeover, 1);
}

TEST_F(TakeoverContentTest, CountsEachKindOfAnswerAsItself) {
    addAtNine();
    ASSERT_TRUE(takeoverAtNine());
    pressSnooze();
    queue.advance(Seconds{60});
    press(Key::escape);
    EXPECT_EQ(today(), (DayBucket{0, 0, 1, 1, 0}));
    EXPECT_TRUE(workspace.opened.empty());
}

// The line of copy

TEST_F(TakeoverContentTest, KnowsTheOnlyMeetingOfTheDay) {
    addAtNine();
    add("Yesterday", local("2026-03-02T23:00:00"), Seconds{3600});
    add("Tomorrow", local("2026-03-04T00:00:00"));
    EXPECT_EQ(copyLineAtNine(), QStringLiteral("Just the one today. Don't let it slip."));
}

TEST_F(TakeoverContentTest, KnowsTheFirstMeetingOfTheDay) {
    addAtNine();
    add("Later", local("2026-03-03T23:59:00"));
    EXPECT_EQ(copyLineAtNine(), QStringLiteral("First one's up."));
}

TEST_F(TakeoverContentTest, KnowsThatAnAllDayEventStandsBeforeTheMeeting) {
    addAtNine();
    add("Holiday", local("2026-03-03T00:00:00"), Seconds{86400}).isAllDay = true;
    EXPECT_EQ(copyLineAtNine(), QStringLiteral("Last one of the day."));
}

TEST_F(TakeoverContentTest, CountsAMeetingThatReachesIntoTheDay) {
    addAtNine();
    add("Night shift", local("2026-03-02T23:00:00"), Seconds{2.0 * 3600.0});
    EXPECT_EQ(copyLineAtNine(), QStringLiteral("Last one of the day."));
}

TEST_F(TakeoverContentTest, KnowsAMeetingRightBehindAnother) {
    addAtNine();
    add("Before", local("2026-03-03T07:30:00"), Seconds{5400 - 299});
    add("After", local("2026-03-03T15:00:00"));
    EXPECT_EQ(copyLineAtNine(), QStringLiteral("Straight into the next one."));
}

TEST_F(TakeoverContentTest, SaysLateForAMeetingThatFiresAtItsVeryStart) {
    preferences.setLeadTimeSeconds(0);
    addAtNine();
    scheduler->refresh();
    runTo("2026-03-03T09:00:00");
    EXPECT_EQ(shownViewModel(panels)->copyLine(), QStringLiteral("Already rolling — hop in."));
}

TEST_F(TakeoverContentTest, LooksAtSelectedCalendarsOnlyForTheRestOfTheDay) {
    auto home = std::make_shared<StoreCalendar>();
    home->calendarIdentifier = QStringLiteral("home");
    store.storedCalendars.push_back(*home);
    add("Dentist", local("2026-03-03T15:00:00")).calendar = home;
    addAtNine();
    EXPECT_EQ(copyLineAtNine(), QStringLiteral("Just the one today. Don't let it slip."));
}

TEST_F(TakeoverContentTest, LeavesTheMeetingItselfOutOfTheRestOfTheDayByItsIdentifier) {
    addAtNine();
    add("Planning", local("2026-03-03T15:00:00")); // Another occurrence of the same series.
    EXPECT_EQ(copyLineAtNine(), QStringLiteral("Just the one today. Don't let it slip."));
}

TEST_F(TakeoverContentTest, JudgesAnOccurrenceByItsOwnStart) {
    // The store answers the occurrence under way, which began before now.
    add("Planning", local("2026-03-03T08:30:00"), Seconds{5400});
    addAtNine();
    scheduler->refresh();
    runTo("2026-03-03T08:29:00");
    dismiss();
    runTo("2026-03-03T08:59:00");
    TakeoverViewModel *takeover = shownViewModel(panels);
    EXPECT_EQ(takeover->countdownText(), QStringLiteral("starts in 1:00"));
    EXPECT_EQ(takeover->copyLine(), QStringLiteral("Just the one today. Don't let it slip."));
}

TEST_F(TakeoverContentTest, HasNoLineWhenNoRuleFits) {
    addAtNine().hasRecurrenceRules = true;
    add("Before", local("2026-03-03T07:00:00"), Seconds{3600});
    add("After", local("2026-03-03T15:00:00"));
    EXPECT_EQ(copyLineAtNine(), QString());
}

TEST_F(TakeoverContentTest, TellsThatASnoozedMeetingHasBegun) {
    addAtNine();
    ASSERT_TRUE(takeoverAtNine());
    pressSnooze();
    runTo("2026-03-03T09:00:00");
    TakeoverViewModel *takeover = shownViewModel(panels);
    EXPECT_EQ(takeover->copyLine(), QStringLiteral("Already rolling — hop in."));
    EXPECT_EQ(takeover->countdownText(), QStringLiteral("rolling now"));
}

struct LongDayRow {
    const char *name;
    const char *meeting;
    const char *other;
    const char *line;
};

void PrintTo(const LongDayRow &row, std::ostream *out) {
    *out << row.name;
}

/// The day of a change of the clock has 23 or 25 hours.
class DayOfAnotherLengthTest : public SchedulerFixture,
                               public testing::WithParamInterface<LongDayRow> {};

TEST_P(DayOfAnotherLengthTest, ReachesFromMidnightToMidnight) {
    const Instant meeting = local(GetParam().meeting);
    queue.jumpWallTo(meeting - Seconds{3600});
    add("Planning", meeting);
    add("Other", local(GetParam().other));
    scheduler->refresh();
    queue.advanceTo(meeting - Seconds{60});
    ASSERT_TRUE(interactivePanel(panels));
    EXPECT_EQ(shownViewModel(panels)->copyLine(), QString::fromUtf8(GetParam().line));
}

INSTANTIATE_TEST_SUITE_P(
    Days, DayOfAnotherLengthTest,
    testing::Values(LongDayRow{"ShortDayEndsAtMidnight", "2026-03-29T12:00:00",
                               "2026-03-30T00:30:00", "Just the one today. Don't let it slip."},
                    LongDayRow{"ShortDayHoldsItsLastHour", "2026-03-29T12:00:00",
                               "2026-03-29T23:30:00", "First one's up."},
                    LongDayRow{"LongDayHoldsItsLastHour", "2026-10-25T12:00:00",
                               "2026-10-25T23:30:00", "First one's up."},
                    LongDayRow{"LongDayEndsAtMidnight", "2026-10-25T12:00:00",
                               "2026-10-26T00:00:00", "Just the one today. Don't let it slip."}),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
} // namespace vantrel
