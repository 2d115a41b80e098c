#include "AppCoordinator.h"

namespace vantrel {

namespace {

constexpr Seconds quietTimeAfterChanges{0.5};

} // namespace

AppCoordinator::AppCoordinator(PreferencesStore &preferences, CalendarAccess &calendarAccess,
                               const AppServices &services, const QString &rescueLogFile)
    : m_calendarAccess(calendarAccess),
      m_calendarRepository(calendarAccess.store(), services.currentCalendar),
      m_calendarAccessStatus(calendarAccess.currentStatus()),
      m_calendarSelection(preferences, services.defaults, calendarAccess.store(),
                          m_calendarRepository),
      m_query(calendarAccess.store()),
      m_takeoverWindowController(services.queue, services.screenLayout, services.panels),
      m_rescueLog(
          RescueLogStore(rescueLogFile), [&queue = services.queue] { return queue.now(); },
          services.currentCalendar),
      m_takeoverTriggerScheduler(calendarAccess.store(), m_query, preferences, m_copyProvider,
                                 m_takeoverWindowController, m_rescueLog, services.queue,
                                 services.currentCalendar, services.workspace),
      m_calendarChangeMonitor(calendarAccess.store(), quietTimeAfterChanges, services.queue,
                              [this] { handleCalendarStoreChanged(); }),
      m_calendarSnapshot(m_calendarRepository.currentSnapshot()) {}

void AppCoordinator::start() {
    m_calendarChangeMonitor.start();
    m_takeoverTriggerScheduler.start();
    if (calendarAccessStatus() == CalendarAccess::Status::fullAccess)
        m_calendarSelection.chooseDefault();
    // Without an answer the program has nothing to do, and no window asks for one before this.
    if (calendarAccessStatus() == CalendarAccess::Status::notDetermined)
        requestCalendarAccess();
}

void AppCoordinator::stop() {
    m_takeoverTriggerScheduler.stop();
    m_calendarChangeMonitor.stop();
    m_takeoverWindowController.hide();
}

void AppCoordinator::handleCalendarStoreChanged() {
    const bool hadAccess = calendarAccessStatus() == CalendarAccess::Status::fullAccess;
    m_calendarAccessStatus.set(m_calendarAccess.currentStatus());
    m_calendarSnapshot.set(m_calendarRepository.currentSnapshot());
    // Access may have been granted by another way than the request: a policy that was lifted, say.
    if (!hadAccess && calendarAccessStatus() == CalendarAccess::Status::fullAccess)
        m_calendarSelection.chooseDefault();
    m_calendarSelection.follow();
    m_takeoverTriggerScheduler.refresh();
}

void AppCoordinator::requestCalendarAccess() {
    m_calendarAccess.requestFullAccess(
        [this, life = std::weak_ptr<char>(m_life)](CalendarAccess::Status status) {
            if (!life.expired())
                takeAccess(status);
        });
}

void AppCoordinator::takeAccess(CalendarAccess::Status status) {
    m_calendarAccessStatus.set(status);
    m_calendarSnapshot.set(m_calendarRepository.currentSnapshot());
    if (status == CalendarAccess::Status::fullAccess)
        m_calendarSelection.chooseDefault();
}

} // namespace vantrel
