#include "TakeoverTriggerScheduler.h"

#include "TakeoverWindowController.h"

#include <calendar/EventKitMapper.h>
#include <copy/MeetingMomentResolver.h>
#include <links/JoinOpener.h>
#include <links/LinkDetector.h>
#include <theme/Theme.h>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds horizon{86400.0};
constexpr Seconds fallbackInterval{3600.0};

/// How long after its start a meeting may still be taken over.
constexpr Seconds lateJoinAllowance{300.0};

Seconds seconds(std::int64_t count) {
    return Seconds{static_cast<double>(count)};
}

Seconds minutes(std::int64_t count) {
    return Seconds{static_cast<double>(count) * 60.0};
}

/// The store's identifier within an occurrence key.
QString eventIdentifierOf(const UpcomingEvent &event) {
    return event.id.section(QLatin1Char('|'), 0, 0, QString::SectionSkipEmpty);
}

} // namespace

TakeoverTriggerScheduler::TakeoverTriggerScheduler(
    const EventStore &store, const UpcomingEventsQuery &query, PreferencesStore &preferences,
    const CopyProvider &copyProvider, TakeoverWindowController &takeoverController,
    RescueLog &rescueLog, MainQueue &queue, CurrentCalendar currentCalendar, Workspace &workspace)
    : m_store(store),
      m_query(query),
      m_preferences(preferences),
      m_copyProvider(copyProvider),
      m_takeoverController(takeoverController),
      m_rescueLog(rescueLog),
      m_queue(queue),
      m_currentCalendar(std::move(currentCalendar)),
      m_workspace(workspace) {}

void TakeoverTriggerScheduler::start() {
    observePreferences();
    m_fallbackTimer = m_queue.every(fallbackInterval, [this] { refresh(); });
    refresh();
}

void TakeoverTriggerScheduler::stop() {
    cancelAllPending();
    m_fallbackTimer.cancel();
    m_cancellables.clear();
}

void TakeoverTriggerScheduler::observePreferences() {
    // A setting tells of its value before it stores it, so the plan waits for the next turn of the
    // loop. Signals still on their way when the watch ends are dropped with it.
    auto watch = std::make_shared<char>();
    const auto signal = [this, watch = std::weak_ptr<void>(watch)](const auto &) {
        m_queue.async([this, watch] {
            if (!watch.expired())
                refresh();
        });
    };
    m_cancellables = {
        std::move(watch),
        m_preferences.selectedCalendarIDsPublisher().subscribe(signal),
        m_preferences.leadTimeSecondsPublisher().subscribe(signal),
        m_preferences.isPausedPublisher().subscribe(signal),
        m_preferences.workHoursEnabledPublisher().subscribe(signal),
        m_preferences.workHoursStartMinutePublisher().subscribe(signal),
        m_preferences.workHoursEndMinutePublisher().subscribe(signal),
        m_preferences.workHoursWeekdaysPublisher().subscribe(signal),
    };
}

// Planning

void TakeoverTriggerScheduler::refresh() {
    cancelAllPending();
    pruneOldFiredEvents();
    if (m_preferences.isPaused())
        return;
    // The query leaves out what began before the moment it is asked for, and a meeting that began
    // just now is still to be shown.
    const auto events =
        m_query.fetchUpcoming(m_preferences.selectedCalendarIDs(),
                              m_queue.now() - lateJoinAllowance, lateJoinAllowance + horizon);
    for (const UpcomingEvent &event : events)
        schedule(event);
}

void TakeoverTriggerScheduler::cancelAllPending() {
    m_pendingFires.clear();
}

void TakeoverTriggerScheduler::pruneOldFiredEvents() {
    const Instant now = m_queue.now();
    std::erase_if(m_firedEvents, [now](const auto &entry) { return entry.second <= now; });
}

void TakeoverTriggerScheduler::schedule(const UpcomingEvent &event) {
    if (m_firedEvents.contains(event.id))
        return;
    const Instant now = m_queue.now();
    if (event.endDate <= now || now > event.startDate + lateJoinAllowance)
        return;
    const Seconds lead = seconds(m_preferences.leadTimeSeconds());
    const Seconds delay = std::max(event.startDate - lead - now, Seconds::zero());
    if (m_preferences.workHoursEnabled() && !isWithinWorkHours(now + delay))
        return;
    arm(event, delay);
}

bool TakeoverTriggerScheduler::isWithinWorkHours(Instant fireTime) const {
    const LocalCalendar calendar = m_currentCalendar();
    if (!m_preferences.workHoursWeekdays().contains(calendar.weekday(fireTime)))
        return false;
    const std::int64_t minute = calendar.minuteOfDay(fireTime);
    const std::int64_t start = m_preferences.workHoursStartMinute();
    const std::int64_t end = m_preferences.workHoursEndMinute();
    if (start <= end)
        return start <= minute && minute < end;
    return minute >= start || minute < end;
}

void TakeoverTriggerScheduler::arm(const UpcomingEvent &event, Seconds delay) {
    m_pendingFires[event.id] = m_queue.after(delay, [this, event] { fire(event); });
}

// Firing

void TakeoverTriggerScheduler::fire(const UpcomingEvent &event) {
    m_pendingFires.erase(event.id);
    // Recorded whatever comes of it: a meeting that was paused away or has gone is done with too.
    m_firedEvents.insert_or_assign(event.id, event.endDate);
    if (m_preferences.isPaused())
        return;
    const auto storeEvent = m_store.eventWithIdentifier(eventIdentifierOf(event));
    if (!storeEvent)
        return;
    const TakeoverContext context = buildContext(event, *storeEvent);
    std::optional<Seconds> autoCloseAfter;
    if (m_preferences.autoCloseSeconds() >= 1)
        autoCloseAfter = seconds(m_preferences.autoCloseSeconds());

    const std::weak_ptr<void> life = m_life;
    m_takeoverController.show(
        context, palette(Theme::hearth), autoCloseAfter,
        [this, life, action = context.primaryAction] {
            if (life.expired())
                return;
            handlePrimaryAction(action);
            m_rescueLog.recordRescue(RescueSource::takeover);
        },
        [this, life, event] {
            if (life.expired())
                return;
            m_rescueLog.recordSnooze();
            snooze(event);
        },
        [this, life] {
            if (!life.expired())
                m_rescueLog.recordDismiss();
        });
}

void TakeoverTriggerScheduler::snooze(const UpcomingEvent &event) {
    m_firedEvents.erase(event.id);
    arm(event, minutes(m_preferences.snoozeDurationMinutes()));
}

TakeoverContext TakeoverTriggerScheduler::buildContext(const UpcomingEvent &event,
                                                       const StoreEvent &storeEvent) const {
    MeetingMomentInputs inputs = EventKitMapper::makeInputs(storeEvent);
    // Of a series the store answers the occurrence nearest to now, which need not be this one.
    inputs.startsAt = event.startDate;
    inputs.endsAt = event.endDate;
    const MeetingMoment moment = MeetingMomentResolver::moment(
        inputs, fetchDayEvents(event.startDate, storeEvent), m_queue.now(), m_currentCalendar());
    return TakeoverContext{event.title,
                           event.startDate,
                           event.endDate,
                           moment,
                           m_copyProvider.line(moment),
                           resolvePrimaryAction(storeEvent)};
}

std::vector<DayEventSummary>
TakeoverTriggerScheduler::fetchDayEvents(Instant around, const StoreEvent &excluding) const {
    const LocalCalendar calendar = m_currentCalendar();
    std::vector<QString> calendarIdentifiers;
    for (const StoreCalendar &storeCalendar : m_store.calendars()) {
        if (m_preferences.selectedCalendarIDs().contains(storeCalendar.calendarIdentifier))
            calendarIdentifiers.push_back(storeCalendar.calendarIdentifier);
    }
    std::vector<DayEventSummary> others;
    for (const StoreEvent &event : m_store.events(
             calendar.startOfDay(around), calendar.startOfDay(around, 1), calendarIdentifiers)) {
        if (event.eventIdentifier != excluding.eventIdentifier)
            others.push_back({event.startDate, event.endDate});
    }
    return others;
}

TakeoverContext::PrimaryAction
TakeoverTriggerScheduler::resolvePrimaryAction(const StoreEvent &event) const {
    using PrimaryAction = TakeoverContext::PrimaryAction;
    const auto found = LinkDetector::detect(event.url, event.location, event.notes);
    if (found.video && found.video->asVideo())
        return PrimaryAction::join(*found.video);
    if (found.phone) {
        if (const auto *phone = found.phone->asPhone())
            return PrimaryAction::call(phone->rawNumber);
    }
    if (event.location && !event.location->trimmed().isEmpty())
        return PrimaryAction::headingOver();
    return PrimaryAction::acknowledge();
}

void TakeoverTriggerScheduler::handlePrimaryAction(const TakeoverContext::PrimaryAction &action) {
    if (const MeetingLink *link = action.asJoin()) {
        if (const auto *video = link->asVideo())
            JoinOpener::open(m_workspace, video->url, m_preferences.joinTarget(),
                             m_preferences.shortcutOnJoin());
    } else if (const QString *rawNumber = action.asCall()) {
        JoinOpener::dial(m_workspace, *rawNumber);
    }
}

} // namespace vantrel
