#include "MenuBarCalendar.h"

#include <menubar/UpcomingEventsViewModel.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel {
namespace {

using fakes::at;
using Mode = UpcomingEventsViewModel::Mode;

class UpcomingEventsViewModelTest : public testing::Test {
protected:
    void add(const char *title, const char *start) {
        calendar.add(QString::fromLatin1(title), at(start));
    }

    /// The groups as "today: a b | tomorrow: c".
    std::string list() const {
        QStringList groups;
        for (const DayGroup &group : viewModel.groups()) {
            QString text = labelOf(group.label) + u':';
            for (const UpcomingEvent &event : group.events)
                text += u' ' + event.title;
            groups.append(text);
        }
        return groups.join(QStringLiteral(" | ")).toStdString();
    }

    static QString labelOf(const DayLabel &label) {
        return label == DayLabel::today()      ? QStringLiteral("today")
               : label == DayLabel::tomorrow() ? QStringLiteral("tomorrow")
                                               : label.text();
    }

    MenuBarCalendar calendar;
    LocalCalendar local = fakes::calendarIn();
    UpcomingEventsViewModel viewModel{calendar.query, calendar.preferences, calendar.queue,
                                      [this] { return local; }, 4};
};

TEST_F(UpcomingEventsViewModelTest, ListsNothingBeforeItIsRefreshed) {
    add("soon", "2026-03-02T10:00:00");
    EXPECT_EQ(viewModel.mode(), Mode::today);
    EXPECT_EQ(list(), "");
    EXPECT_EQ(viewModel.errorMessage(), std::nullopt);
    EXPECT_EQ(calendar.store.fetchCount, 0);
}

TEST_F(UpcomingEventsViewModelTest, ListsTodayUpToMidnightAndAllBeyondIt) {
    add("late", "2026-03-02T23:59:00");
    add("midnight", "2026-03-03T00:00:00");
    viewModel.refresh();
    EXPECT_EQ(list(), "today: late");
    viewModel.setMode(Mode::all);
    EXPECT_EQ(list(), "today: late | tomorrow: midnight");
}

TEST_F(UpcomingEventsViewModelTest, ListsTwoWeeksAndNotMore) {
    add("last", "2026-03-16T08:59:59");
    add("beyond", "2026-03-16T09:00:00");
    viewModel.setMode(Mode::all);
    viewModel.refresh();
    EXPECT_EQ(list(), "Mar 16, 2026: last");
}

TEST_F(UpcomingEventsViewModelTest, ListsTheSelectedCalendarsAlone) {
    add("soon", "2026-03-02T10:00:00");
    calendar.preferences.setSelectedCalendarIDs({QStringLiteral("private")});
    viewModel.refresh();
    EXPECT_EQ(list(), "");
    calendar.preferences.setSelectedCalendarIDs({QStringLiteral("work")});
    viewModel.refresh();
    EXPECT_EQ(list(), "today: soon");
}

TEST_F(UpcomingEventsViewModelTest, ListsNothingWithoutAccess) {
    add("soon", "2026-03-02T10:00:00");
    calendar.store.authorization = StoreAuthorization::denied;
    viewModel.refresh();
    EXPECT_EQ(list(), "");
}

TEST_F(UpcomingEventsViewModelTest, SwitchesTheModeWithoutReadingTheCalendars) {
    add("soon", "2026-03-02T10:00:00");
    viewModel.refresh();
    const int fetches = calendar.store.fetchCount;
    add("added", "2026-03-02T11:00:00");
    viewModel.setMode(Mode::all);
    viewModel.setMode(Mode::today);
    EXPECT_EQ(calendar.store.fetchCount, fetches);
    EXPECT_EQ(list(), "today: soon");
}

TEST_F(UpcomingEventsViewModelTest, DropsAMeetingAtTheFirstTickAfterItsStartWithoutReading) {
    add("soon", "2026-03-02T09:00:30");
    add("later", "2026-03-02T09:02:00");
    viewModel.popoverDidShow();
    const int fetches = calendar.store.fetchCount;
    calendar.queue.advance(Seconds{59.0});
    EXPECT_EQ(list(), "today: soon later");
    calendar.queue.advance(Seconds{1.0});
    EXPECT_EQ(list(), "today: later");
    // At the very moment of its start a meeting is listed still.
    calendar.queue.advance(Seconds{60.0});
    EXPECT_EQ(list(), "today: later");
    calendar.queue.advance(Seconds{60.0});
    EXPECT_EQ(list(), "");
    EXPECT_EQ(calendar.store.fetchCount, fetches);
}

TEST_F(UpcomingEventsViewModelTest, RelabelsTheDaysWhenMidnightPasses) {
    calendar.queue.advanceTo(at("2026-03-02T23:59:30"));
    add("morning", "2026-03-03T08:00:00");
    viewModel.popoverDidShow();
    viewModel.setMode(Mode::all);
    EXPECT_EQ(list(), "tomorrow: morning");
    calendar.queue.advance(Seconds{60.0});
    EXPECT_EQ(list(), "today: morning");
}

TEST_F(UpcomingEventsViewModelTest, FollowsTheUserIntoAnotherZone) {
    add("soon", "2026-03-02T23:30:00");
    viewModel.refresh();
    viewModel.setMode(Mode::all);
    EXPECT_EQ(list(), "today: soon");
    local = fakes::calendarIn("Europe/Zurich");
    viewModel.setMode(Mode::all);
    EXPECT_EQ(list(), "tomorrow: soon");
}

TEST_F(UpcomingEventsViewModelTest, StopsTickingWhenThePopoverClosesAndReadsWhenItOpens) {
    add("soon", "2026-03-02T09:00:30");
    viewModel.popoverDidShow();
    viewModel.popoverDidClose();
    EXPECT_EQ(calendar.queue.pendingCount(), 0U);
    calendar.queue.advance(Seconds{120.0});
    EXPECT_EQ(list(), "today: soon");
    add("added", "2026-03-02T11:00:00");
    viewModel.popoverDidShow();
    EXPECT_EQ(list(), "today: added");
}

TEST_F(UpcomingEventsViewModelTest, TicksOnceAMinuteHoweverOftenThePopoverIsShown) {
    viewModel.popoverDidShow();
    calendar.queue.advance(Seconds{30.0});
    viewModel.popoverDidShow();
    EXPECT_EQ(calendar.queue.pendingCount(), 1U);
    int groupings = 0;
    const auto subscription = viewModel.observeGroups([&](const auto &) { ++groupings; });
    calendar.queue.advance(Seconds{30.0});
    EXPECT_EQ(groupings, 1);
    calendar.queue.advance(Seconds{30.0});
    EXPECT_EQ(groupings, 2);
}

TEST_F(UpcomingEventsViewModelTest, KeepsTheIndexOfTheEmptyLineThroughAllModes) {
    EXPECT_EQ(viewModel.emptyStateLine(Mode::today), u"nothing on the books");
    EXPECT_EQ(viewModel.emptyStateLine(Mode::all), u"no meetings in the next two weeks");
    viewModel.setMode(Mode::all);
    viewModel.refresh();
    EXPECT_EQ(viewModel.emptyStateLine(Mode::today), u"nothing on the books");
}

TEST_F(UpcomingEventsViewModelTest, TellsOfModeGroupsAndErrorBeforeTheyAreStored) {
    add("soon", "2026-03-02T10:00:00");
    std::vector<Mode> modes;
    std::vector<std::size_t> counts;
    int errors = 0;
    const std::vector<Subscription> subscriptions{
        viewModel.observeMode([&](const Mode &mode) {
            EXPECT_EQ(viewModel.mode(), Mode::today);
            modes.push_back(mode);
        }),
        viewModel.observeGroups([&](const auto &groups) {
            EXPECT_TRUE(viewModel.groups().empty() || modes.size() == 2);
            counts.push_back(groups.size());
        }),
        viewModel.observeErrorMessage([&](const auto &message) {
            EXPECT_EQ(message, std::nullopt);
            ++errors;
        }),
    };
    viewModel.refresh();
    viewModel.setMode(Mode::all);
    EXPECT_EQ(modes, (std::vector<Mode>{Mode::today, Mode::all}));
    EXPECT_EQ(counts, (std::vector<std::size_t>{0, 1, 1}));
    EXPECT_EQ(errors, 2);
}

} // namespace
} // namespace vantrel
