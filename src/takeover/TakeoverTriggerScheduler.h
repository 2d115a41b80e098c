#pragma once

#include "TakeoverContext.h"
#include "TakeoverContextBuilder.h"

#include <calendar/UpcomingEvent.h>
#include <calendar/UpcomingEventsQuery.h>
#include <copy/CopyProvider.h>
#include <platform/EventStore.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>
#include <platform/Published.h>
#include <platform/Time.h>
#include <platform/Workspace.h>
#include <preferences/PreferencesStore.h>
#include <rescues/RescueLog.h>

#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace vantrel {

class TakeoverWindowController;

/// Decides when a takeover comes up: arms one piece of delayed work for each meeting of the next
/// 24 hours, and when that falls due shows the takeover, carries out the user's answer and counts
/// it in the rescue log.
///
/// It plans anew when a setting changes that matters to the plan, once an hour, and on `refresh`,
/// which its owner calls when the calendars changed; the store's change notice also covers a wake
/// from sleep and a clock that was set, so nothing of that kind is watched here. What fired is
/// remembered in memory only. Main thread only.
class TakeoverTriggerScheduler {
public:
    /// What is passed in must outlive the scheduler. Destroying the scheduler ends all that it
    /// armed; a takeover that is up stays up, and its answers are no longer heard.
    TakeoverTriggerScheduler(const EventStore &store, const UpcomingEventsQuery &query,
                             PreferencesStore &preferences, const CopyProvider &copyProvider,
                             TakeoverWindowController &takeoverController, RescueLog &rescueLog,
                             MainQueue &queue, CurrentCalendar currentCalendar,
                             Workspace &workspace);
    TakeoverTriggerScheduler(const TakeoverTriggerScheduler &) = delete;
    TakeoverTriggerScheduler &operator=(const TakeoverTriggerScheduler &) = delete;

    void start();

    /// Ends the watch; a takeover that is up stays up. What fired is not forgotten.
    void stop();

    /// Makes the whole plan anew. A takeover that was snoozed loses its snooze and is planned by
    /// the rules for any other meeting.
    void refresh();

    /// A takeover is about to be handed to the controller, which takes one only while none is up.
    Announcer<> fires;

    /// When the takeovers that are armed fall due, in order.
    [[nodiscard]] std::vector<Instant> pendingFires() const;

private:
    struct PendingFire {
        Instant at;
        ScheduledWork work;
    };

    void observePreferences();
    void cancelAllPending();
    void pruneOldFiredEvents();
    void schedule(const UpcomingEvent &event);
    void arm(const UpcomingEvent &event, Seconds delay);
    void fire(const UpcomingEvent &event);
    void snooze(const UpcomingEvent &event);

    void handlePrimaryAction(const TakeoverContext::PrimaryAction &action);

    const EventStore &m_store;
    const UpcomingEventsQuery &m_query;
    PreferencesStore &m_preferences;
    TakeoverWindowController &m_takeoverController;
    RescueLog &m_rescueLog;
    MainQueue &m_queue;
    CurrentCalendar m_currentCalendar;
    Workspace &m_workspace;
    TakeoverContextBuilder m_contextBuilder;

    /// By event id. An entry goes when its work runs.
    std::map<QString, PendingFire> m_pendingFires;
    /// By event id: the end of the meeting, from its takeover on. An id in here is not armed.
    std::map<QString, Instant> m_firedEvents;
    std::vector<Subscription> m_cancellables;
    ScheduledWork m_fallbackTimer;
    /// Goes with the scheduler; callbacks that outlive it find it gone.
    std::shared_ptr<void> m_life = std::make_shared<char>();
};

} // namespace vantrel
