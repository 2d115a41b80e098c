#include "SimulatedDesk.h"

#include <takeover/TakeoverViewModel.h>

#include <utility>

namespace vantrel::simulation {

namespace {

/// Where the manual queue begins to count.
constexpr Micros firstUptime = 1000 * microsPerSecond;

Instant instant(Micros wall) {
    return Instant{std::chrono::microseconds{wall}};
}

LocalCalendar calendarOf(const QTimeZone &zone) {
    return LocalCalendar(zone, QLocale(QLocale::English, QLocale::UnitedStates));
}

/// No such folder: the counts stay in memory.
RescueLogStore forgetfulStore() {
    return RescueLogStore(QStringLiteral("/nonexistent/rescues.json"));
}

} // namespace

std::vector<StoreEvent>
SimulatedDesk::Store::events(Instant from, Instant to,
                             const std::vector<QString> &calendarIdentifiers) const {
    auto found = FakeEventStore::events(from, to, calendarIdentifiers);
    if (const auto happening = std::exchange(whileFetching, nullptr))
        happening();
    return found;
}

SimulatedDesk::SimulatedDesk(Micros wall, const QTimeZone &zone)
    : queue(instant(wall)),
      m_calendar(calendarOf(zone)),
      m_store([this] { return queue.now(); }),
      m_query(m_store),
      m_preferences(m_defaults),
      m_controller(queue, m_screens, m_panels),
      m_rescueLog(
          forgetfulStore(), [this] { return queue.now(); }, [this] { return m_calendar; }),
      m_scheduler(
          m_store, m_query, m_preferences, m_copyProvider, m_controller, m_rescueLog, queue,
          [this] { return m_calendar; }, m_workspace),
      m_monitor(m_store, Seconds{0.5}, queue, [this] { m_scheduler.refresh(); }) {
    m_declined = std::make_shared<std::vector<StoreParticipant>>(
        std::vector<StoreParticipant>{{true, StoreParticipantStatus::declined}});
    m_screens.connected = {{QStringLiteral("one"), QRect(0, 0, 1920, 1080)}};
    m_panels.whenMade = [this](const auto &panel) { writeShown(panel); };
    m_workspace.whenOpened = [this](const QString &url) { write(QStringLiteral("open ") + url); };
    m_counts = m_rescueLog.subscribe([this](const DayBuckets &byDay) { readCounts(byDay); });
}

void SimulatedDesk::start() {
    m_monitor.start();
    m_scheduler.start();
    queue.runDue();
}

void SimulatedDesk::setZone(const QTimeZone &zone) {
    m_calendar = calendarOf(zone);
}

void SimulatedDesk::setCalendars(const std::set<QString> &calendars) {
    m_store.storedCalendars.clear();
    for (const QString &identifier : calendars) {
        auto &calendar = m_calendars[identifier];
        if (!calendar) {
            auto made = std::make_shared<StoreCalendar>();
            made->calendarIdentifier = identifier;
            calendar = std::move(made);
        }
        m_store.storedCalendars.push_back(*calendar);
    }
}

void SimulatedDesk::setMeetings(const std::vector<Meeting> &meetings) {
    m_store.storedEvents.clear();
    for (const Meeting &meeting : meetings)
        m_store.storedEvents.push_back(storeEvent(meeting));
}

StoreEvent SimulatedDesk::storeEvent(const Meeting &meeting) const {
    StoreEvent event;
    event.eventIdentifier = meeting.identifier;
    event.title = meeting.title;
    event.startDate = instant(meeting.start * microsPerSecond);
    event.endDate = instant(meeting.end * microsPerSecond);
    event.isAllDay = meeting.isAllDay;
    event.status = meeting.isCancelled ? StoreEventStatus::cancelled : StoreEventStatus::confirmed;
    if (meeting.isDeclined)
        event.attendees = m_declined;
    event.calendar = m_calendars.at(meeting.calendar);
    event.hasRecurrenceRules = meeting.isOfASeries;
    if (meeting.way == Way::video)
        event.url = Url::fromString(videoUrl(meeting.identifier));
    if (meeting.way == Way::phone)
        event.notes = QStringLiteral("+41 44 668 18 00");
    if (meeting.way == Way::place)
        event.location = QStringLiteral("Room 5");
    return event;
}

void SimulatedDesk::refresh(Micros asleep) {
    m_store.whileFetching = [this, asleep] { queue.suspend(std::chrono::microseconds{asleep}); };
    m_scheduler.refresh();
    m_store.whileFetching = nullptr;
    queue.runDue();
}

void SimulatedDesk::answer(Answer given) {
    switch (given) {
    case Answer::join:
        m_panels.press({Key::space, QStringLiteral(" ")});
        return;
    case Answer::snooze:
        m_panels.press({Key::other, QStringLiteral("s")});
        return;
    case Answer::dismiss:
        m_panels.press({Key::escape, QString()});
        return;
    }
}

void SimulatedDesk::advanceTo(Micros target) {
    queue.advance(std::chrono::microseconds{target - uptime()});
}

Micros SimulatedDesk::uptime() const {
    const Seconds running = queue.uptime().time_since_epoch();
    return std::chrono::round<std::chrono::microseconds>(running).count() - firstUptime;
}

void SimulatedDesk::tidy() {
    std::erase_if(m_panels.panels, [](const auto &panel) { return !panel->exists; });
    m_panels.orderedFront.clear();
}

// The log

void SimulatedDesk::readCounts(const DayBuckets &byDay) {
    DayBucket sum;
    for (const auto &[day, bucket] : byDay) {
        sum.rescuesFromTakeover += bucket.rescuesFromTakeover;
        sum.snoozes += bucket.snoozes;
        sum.dismisses += bucket.dismisses;
    }
    for (; m_counted.rescuesFromTakeover < sum.rescuesFromTakeover; ++m_counted.rescuesFromTakeover)
        write(QStringLiteral("rescue"));
    for (; m_counted.snoozes < sum.snoozes; ++m_counted.snoozes)
        write(QStringLiteral("snooze"));
    for (; m_counted.dismisses < sum.dismisses; ++m_counted.dismisses)
        write(QStringLiteral("dismiss"));
}

void SimulatedDesk::writeShown(const fakes::RecordingPanels::Record &panel) {
    const auto *viewModel =
        panel.content.properties.value(QStringLiteral("viewModel")).value<TakeoverViewModel *>();
    write(
        QStringLiteral("show %1, %2, %3")
            .arg(viewModel->title(), viewModel->primaryActionLabel(), viewModel->countdownText()));
}

void SimulatedDesk::write(const QString &what) {
    log.push_back(QStringLiteral("%1 %2").arg(uptime()).arg(what));
}

} // namespace vantrel::simulation
