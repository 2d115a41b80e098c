#include "TakeoverTriggerScheduler.h"

#include "TakeoverWindowController.h"
#include "WorkHours.h"

#include <links/JoinOpener.h>
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

} // namespace

TakeoverTriggerScheduler::TakeoverTriggerScheduler(
    const EventStore &store, const UpcomingEventsQuery &query, PreferencesStore &preferences,
    const CopyProvider &copyProvider, TakeoverWindowController &takeoverController,
    RescueLog &rescueLog, MainQueue &queue, CurrentCalendar currentCalendar, Workspace &workspace)
    : m_store(store),
      m_query(query),
      m_preferences(preferences),
      m_takeoverController(takeoverController),
      m_rescueLog(rescueLog),
      m_queue(queue),
      m_currentCalendar(std::move(currentCalendar)),
      m_workspace(workspace),
      m_contextBuilder(store, preferences, copyProvider, queue, m_currentCalendar) {}

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

std::vector<Instant> TakeoverTriggerScheduler::pendingFires() const {
    std::vector<Instant> pending;
    for (const auto &entry : m_pendingFires)
        pending.push_back(entry.second.at);
    std::ranges::sort(pending);
    return pending;
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
    if (WorkHours::of(m_preferences).contains(now + delay, m_currentCalendar()))
        arm(event, delay);
}

void TakeoverTriggerScheduler::arm(const UpcomingEvent &event, Seconds delay) {
    m_pendingFires[event.id] = {m_queue.now() + delay,
                                m_queue.after(delay, [this, event] { fire(event); })};
}

// Firing

void TakeoverTriggerScheduler::fire(const UpcomingEvent &event) {
    m_pendingFires.erase(event.id);
    // Recorded whatever comes of it: a meeting that was paused away or has gone is done with too.
    m_firedEvents.insert_or_assign(event.id, event.endDate);
    if (m_preferences.isPaused())
        return;
    const auto storeEvent = m_store.eventWithIdentifier(event.eventIdentifier());
    if (!storeEvent)
        return;
    const TakeoverContext context = m_contextBuilder.buildContext(event, *storeEvent);
    std::optional<Seconds> autoCloseAfter;
    if (m_preferences.autoCloseSeconds() >= 1)
        autoCloseAfter = seconds(m_preferences.autoCloseSeconds());

    fires.announce();
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
