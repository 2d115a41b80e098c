#include "UpcomingEventsViewModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds horizon{1'209'600.0};
constexpr Seconds tickInterval{60.0};

} // namespace

UpcomingEventsViewModel::UpcomingEventsViewModel(const UpcomingEventsQuery &query,
                                                 const PreferencesStore &preferences,
                                                 MainQueue &queue, CurrentCalendar currentCalendar,
                                                 std::int64_t emptyStateNumber)
    : m_query(query),
      m_preferences(preferences),
      m_queue(queue),
      m_currentCalendar(std::move(currentCalendar)),
      m_emptyStateNumber(emptyStateNumber) {}

void UpcomingEventsViewModel::setMode(Mode mode) {
    m_mode.set(mode);
    regroup();
}

void UpcomingEventsViewModel::refresh() {
    m_cache = m_query.fetchUpcoming(m_preferences.selectedCalendarIDs(), m_queue.now(), horizon);
    m_errorMessage.set(std::nullopt);
    regroup();
}

void UpcomingEventsViewModel::popoverDidShow() {
    refresh();
    m_minuteTick = m_queue.every(tickInterval, [this] { regroup(); });
}

void UpcomingEventsViewModel::popoverDidClose() {
    m_minuteTick.cancel();
}

void UpcomingEventsViewModel::regroup() {
    const Instant now = m_queue.now();
    const LocalCalendar calendar = m_currentCalendar();
    m_groups.set(EventGrouper::groupByDay(filter(m_cache, mode(), now, calendar), now, calendar));
}

std::vector<UpcomingEvent> UpcomingEventsViewModel::filter(const std::vector<UpcomingEvent> &events,
                                                           Mode mode, Instant now,
                                                           const LocalCalendar &calendar) {
    const Instant endOfToday = calendar.startOfDay(now, 1);
    const auto isListed = [&](const UpcomingEvent &event) {
        return event.startDate >= now && (mode == Mode::all || event.startDate < endOfToday);
    };
    std::vector<UpcomingEvent> listed;
    std::ranges::copy_if(events, std::back_inserter(listed), isListed);
    return listed;
}

} // namespace vantrel
