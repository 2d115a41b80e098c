#include "AppCoordinator.h"

namespace vantrel {

namespace {

constexpr Seconds quietTimeAfterChanges{0.5};

} // namespace

AppCoordinator::AppCoordinator(PreferencesStore &preferences, const AppServices &services,
                               const QString &rescueLogFile)
    : m_preferences(preferences),
      m_services(services),
      m_query(services.store),
      m_takeoverWindowController(services.queue, services.screenLayout, services.panels),
      m_rescueLog(
          RescueLogStore(rescueLogFile), [&queue = services.queue] { return queue.now(); },
          services.currentCalendar),
      m_takeoverTriggerScheduler(services.store, m_query, preferences, m_copyProvider,
                                 m_takeoverWindowController, m_rescueLog, services.queue,
                                 services.currentCalendar, services.workspace),
      m_calendarChangeMonitor(services.store, quietTimeAfterChanges, services.queue,
                              [this] { handleCalendarStoreChanged(); }) {}

void AppCoordinator::start() {
    m_calendarChangeMonitor.start();
    m_takeoverTriggerScheduler.start();
    selectDefaultCalendars();
}

bool AppCoordinator::hasSelection(const UserDefaults &defaults) {
    return defaults.hasObject(QStringLiteral("Vantrel.selectedCalendarIDs"));
}

void AppCoordinator::stop() {
    m_takeoverTriggerScheduler.stop();
    m_calendarChangeMonitor.stop();
    m_takeoverWindowController.hide();
}

void AppCoordinator::handleCalendarStoreChanged() {
    selectDefaultCalendars();
    m_takeoverTriggerScheduler.refresh();
}

std::set<QString> AppCoordinator::defaultSelection(const EventStore &store) {
    std::set<QString> ordinary;
    for (const StoreCalendar &calendar : store.calendars()) {
        if (calendar.type == StoreCalendarType::local)
            ordinary.insert(calendar.calendarIdentifier);
    }
    return ordinary;
}

/// As long as there is no calendar there is nothing to choose from, and no choice is stored.
void AppCoordinator::selectDefaultCalendars() {
    if (hasSelection(m_services.defaults))
        return;
    const std::set<QString> selection = defaultSelection(m_services.store);
    if (!selection.empty())
        m_preferences.setSelectedCalendarIDs(selection);
}

} // namespace vantrel
