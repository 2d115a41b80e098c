#pragma once

#include "EmptyStateLine.h"
#include "EventListMode.h"

#include <calendar/EventGrouper.h>
#include <calendar/UpcomingEventsQuery.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>
#include <platform/Published.h>
#include <preferences/PreferencesStore.h>

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel {

/// What the popover lists: the meetings of the next two weeks by day, or today's alone. Reads the
/// calendars when told to, and sorts what it has read anew once a minute while the popover is
/// open. Main thread only.
class UpcomingEventsViewModel {
public:
    using Mode = EventListMode;

    /// What is passed in must outlive the view model. `emptyStateNumber` chooses the line of an
    /// empty list.
    UpcomingEventsViewModel(const UpcomingEventsQuery &query, const PreferencesStore &preferences,
                            MainQueue &queue, CurrentCalendar currentCalendar,
                            std::int64_t emptyStateNumber = EmptyStateLine::numberOfThisProcess());
    UpcomingEventsViewModel(const UpcomingEventsViewModel &) = delete;
    UpcomingEventsViewModel &operator=(const UpcomingEventsViewModel &) = delete;

    [[nodiscard]] Mode mode() const { return m_mode.value(); }
    /// Calls `subscriber` with the current mode at once and with each further one before it is
    /// stored.
    [[nodiscard]] Subscription observeMode(const std::function<void(const Mode &)> &subscriber) {
        return m_mode.subscribe(subscriber);
    }
    /// Sorts what was read last by the other mode; the calendars are not read.
    void setMode(Mode mode);

    /// Empty where nothing is to be listed.
    [[nodiscard]] const std::vector<DayGroup> &groups() const { return m_groups.value(); }
    /// Like `observeMode`. Told of each sorting, whether or not it has changed anything.
    [[nodiscard]] Subscription
    observeGroups(const std::function<void(const std::vector<DayGroup> &)> &subscriber) {
        return m_groups.subscribe(subscriber);
    }

    /// What went wrong, if anything; each refresh clears it.
    [[nodiscard]] const std::optional<QString> &errorMessage() const {
        return m_errorMessage.value();
    }
    /// Like `observeMode`.
    [[nodiscard]] Subscription
    observeErrorMessage(const std::function<void(const std::optional<QString> &)> &subscriber) {
        return m_errorMessage.subscribe(subscriber);
    }

    /// What stands in place of an empty list; the same throughout a run of the program.
    [[nodiscard]] QString emptyStateLine(Mode mode) const {
        return EmptyStateLine::line(mode, m_emptyStateNumber);
    }

    /// Reads the selected calendars and sorts what they hold.
    void refresh();

    /// Refreshes, then keeps the list in step with the clock until `popoverDidClose`.
    void popoverDidShow();
    void popoverDidClose();

private:
    void regroup();
    [[nodiscard]] static std::vector<UpcomingEvent> filter(const std::vector<UpcomingEvent> &events,
                                                           Mode mode, Instant now,
                                                           const LocalCalendar &calendar);

    Published<Mode> m_mode{Mode::today};
    Published<std::vector<DayGroup>> m_groups{{}};
    Published<std::optional<QString>> m_errorMessage{std::nullopt};
    const UpcomingEventsQuery &m_query;
    const PreferencesStore &m_preferences;
    MainQueue &m_queue;
    CurrentCalendar m_currentCalendar;
    const std::int64_t m_emptyStateNumber;
    std::vector<UpcomingEvent> m_cache;
    ScheduledWork m_minuteTick;
};

} // namespace vantrel
