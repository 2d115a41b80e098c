#include "AppCoordinator.h"

#include <links/JoinOpener.h>
#include <menubar/PopoverContents.h>
#include <menubar/UpcomingMenuTarget.h>
#include <takeover/DemoTakeover.h>

#include <utility>

namespace vantrel {

namespace {

constexpr Seconds quietTimeAfterChanges{0.5};

} // namespace

AppCoordinator::AppCoordinator(PreferencesStore &preferences, CalendarAccess &calendarAccess,
                               const AppServices &services, const QString &rescueLogFile)
    : m_preferences(preferences),
      m_calendarAccess(calendarAccess),
      m_services(services),
      m_calendarRepository(calendarAccess.store(), services.currentCalendar),
      m_calendarAccessStatus(calendarAccess.currentStatus()),
      m_calendarSelection(preferences, services.defaults, calendarAccess.store(),
                          m_calendarRepository),
      m_query(calendarAccess.store()),
      m_upcomingEventsViewModel(m_query, preferences, services.queue, services.currentCalendar),
      m_takeoverWindowController(services.queue, services.screenLayout, services.panels),
      m_makingWay(m_takeoverWindowController.comesUp.subscribe([this] { closePopups(); })),
      m_launchAtLoginManager(services.loginItem),
      m_rescueLog(
          RescueLogStore(rescueLogFile), [&queue = services.queue] { return queue.now(); },
          services.currentCalendar),
      m_takeoverTriggerScheduler(calendarAccess.store(), m_query, preferences, m_copyProvider,
                                 m_takeoverWindowController, m_rescueLog, services.queue,
                                 services.currentCalendar, services.workspace),
      m_endOfPreview(m_takeoverTriggerScheduler.fires.subscribe([this] { endPreview(); })),
      m_calendarChangeMonitor(calendarAccess.store(), quietTimeAfterChanges, services.queue,
                              [this] { handleCalendarStoreChanged(); }),
      m_calendarSnapshot(m_calendarRepository.currentSnapshot()) {}

AppCoordinator::~AppCoordinator() {
    UpcomingMenuTarget &target = UpcomingMenuTarget::shared();
    target.openPreferencesHandler = {};
    target.previewTakeoverHandler = {};
    target.openRecapHandler = {};
    target.quitHandler = {};
}

void AppCoordinator::start() {
    makePopover();
    startMenuBar();
    m_calendarChangeMonitor.start();
    m_takeoverTriggerScheduler.start();
    if (calendarAccessStatus() == CalendarAccess::Status::fullAccess)
        m_calendarSelection.chooseDefault();
    if (!m_services.defaults.boolean(QString::fromLatin1(completedFirstRunKey)))
        openOnboarding();
    // Without an answer the program has nothing to do. The first run asks by itself.
    else if (calendarAccessStatus() == CalendarAccess::Status::notDetermined)
        requestCalendarAccess();
}

void AppCoordinator::makePopover() {
    UpcomingMenuTarget &target = UpcomingMenuTarget::shared();
    target.openPreferencesHandler = [this] { openPreferences(); };
    target.previewTakeoverHandler = [this] { previewTakeover(std::nullopt); };
    target.openRecapHandler = [this] { openRecap(); };
    target.quitHandler = m_services.terminate;
    m_popupMenu = std::make_unique<PopupMenu>(m_services.popups, m_preferences, m_services.queue,
                                              m_services.currentCalendar);
    m_popoverModel = std::make_unique<PopoverModel>(
        m_upcomingEventsViewModel, m_preferences, m_services.currentCalendar,
        PopoverModel::Actions{[this](const UpcomingEvent &event) { handleJoin(event); },
                              [this](QPoint click) {
                                  m_popupMenu->show(UpcomingMenuTarget::shared().menu(), click);
                              }});
    m_upcomingEventsPopover = std::make_unique<UpcomingEventsPopover>(
        m_services.popups, upcomingEventsContent(*m_popoverModel), m_upcomingEventsViewModel,
        m_services.queue);
}

void AppCoordinator::startMenuBar() {
    MenuBarController::Actions actions;
    actions.leftClick = [this](const auto &place) {
        m_popupMenu->close();
        m_upcomingEventsPopover->toggle(place);
    };
    actions.showMenu = [this](const Menu &menu, const auto &place) {
        closePopups();
        m_popupMenu->show(menu, PopupPlace{place, PopupAlignment::leading});
    };
    actions.openPreferences = [this] { openPreferences(); };
    actions.checkForUpdates = [this] { checkForUpdates(); };
    actions.quit = m_services.terminate;
    m_menuBar = std::make_unique<MenuBarController>(m_services.statusBar, m_preferences, m_query,
                                                    m_services.queue, std::move(actions));
    m_menuBar->observePauseState();
    m_menuBar->observeDisplayInputs();
    m_menuBar->startMinuteTick();
    m_menuBar->applyDisplay();
}

void AppCoordinator::stop() {
    m_takeoverTriggerScheduler.stop();
    m_calendarChangeMonitor.stop();
    closePopups();
    m_takeoverWindowController.hide();
    if (m_menuBar)
        m_menuBar->stop();
}

void AppCoordinator::takeRequest(ActivationRequest request) {
    switch (request) {
    case ActivationRequest::togglePause:
        m_preferences.setIsPaused(!m_preferences.isPaused());
        break;
    case ActivationRequest::pause:
        m_preferences.setIsPaused(true);
        break;
    case ActivationRequest::resume:
        m_preferences.setIsPaused(false);
        break;
    case ActivationRequest::showPopover:
        m_popupMenu->close();
        // Where it is open already it hangs from where it was asked for.
        if (!m_upcomingEventsPopover->isShown())
            m_upcomingEventsPopover->show(std::nullopt);
        break;
    case ActivationRequest::showPreferences:
        openPreferences();
        break;
    case ActivationRequest::showRecap:
        openRecap();
        break;
    case ActivationRequest::preview:
        previewTakeover(std::nullopt);
        break;
    case ActivationRequest::quit:
        m_services.terminate();
        break;
    }
}

AgentStatus AppCoordinator::status() const {
    AgentStatus status;
    if (m_menuBar)
        status.statusItem = m_menuBar->itemPlace();
    status.isPaused = m_preferences.isPaused();
    status.access = calendarAccessStatus();
    for (const auto &group : calendarSnapshot().groups) {
        for (const auto &calendar : group.calendars) {
            ++status.calendars;
            status.watched += m_preferences.selectedCalendarIDs().contains(calendar.id) ? 1 : 0;
        }
    }
    status.nextFires = m_takeoverTriggerScheduler.pendingFires();
    return status;
}

void AppCoordinator::closePopups() {
    if (m_popupMenu)
        m_popupMenu->close();
    if (m_upcomingEventsPopover)
        m_upcomingEventsPopover->close();
}

void AppCoordinator::handleCalendarStoreChanged() {
    const bool hadAccess = calendarAccessStatus() == CalendarAccess::Status::fullAccess;
    m_calendarAccessStatus.set(m_calendarAccess.currentStatus());
    m_calendarSnapshot.set(m_calendarRepository.currentSnapshot());
    // Access may have been granted by another way than the request: a policy that was lifted, say.
    if (!hadAccess && calendarAccessStatus() == CalendarAccess::Status::fullAccess)
        m_calendarSelection.chooseDefault();
    m_calendarSelection.follow();
    m_upcomingEventsViewModel.refresh();
    m_takeoverTriggerScheduler.refresh();
    if (m_menuBar)
        m_menuBar->applyDisplay();
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
    m_upcomingEventsViewModel.refresh();
}

void AppCoordinator::handleJoin(const UpcomingEvent &event) {
    const auto *video = event.videoLink ? event.videoLink->asVideo() : nullptr;
    const auto *phone = event.phoneLink ? event.phoneLink->asPhone() : nullptr;
    if (video)
        JoinOpener::open(m_services.workspace, video->url, m_preferences.joinTarget(),
                         m_preferences.shortcutOnJoin());
    else if (phone)
        JoinOpener::dial(m_services.workspace, phone->rawNumber);
    else
        return;
    m_rescueLog.recordRescue(RescueSource::popover);
    closePopups();
}

void AppCoordinator::openOnboarding() {
    closePopups();
    if (!m_onboardingWindowController)
        m_onboardingWindowController = std::make_unique<OnboardingWindowController>(
            std::make_unique<OnboardingState>(
                m_preferences, m_calendarAccess, m_launchAtLoginManager,
                m_services.notificationPermission, [this] { previewTakeover(std::nullopt); }),
            m_services.defaults, m_services.windows, m_services.queue);
    m_onboardingWindowController->state().advanceToFirstIncompleteStep();
    m_onboardingWindowController->show();
}

void AppCoordinator::openPreferences() {
    closePopups();
    if (!m_preferencesWindowController)
        m_preferencesWindowController = std::make_unique<PreferencesWindowController>(
            *this, m_preferences, m_services.workspace, m_services.windows,
            m_services.currentCalendar);
    m_preferencesWindowController->show();
}

void AppCoordinator::openRecap() {
    closePopups();
    if (!m_recapWindowController)
        m_recapWindowController = std::make_unique<RecapWindowController>(
            m_rescueLog, m_preferences, m_services.windows, m_services.queue);
    m_recapWindowController->refresh();
    m_recapWindowController->show();
}

void AppCoordinator::checkForUpdates() {
    closePopups();
    m_services.softwareUpdater.checkForUpdates();
}

void AppCoordinator::previewTakeover(std::optional<Theme> themeOverride) {
    closePopups();
    const Theme theme = themeOverride.value_or(m_preferences.selectedTheme());
    const auto nothing = [] {};
    m_preview = demoTakeover(m_services.queue.now(), m_services.currentCalendar(), m_copyProvider);
    m_takeoverWindowController.show(*m_preview, palette(theme), std::nullopt, nothing, nothing,
                                    nothing);
}

/// A preview stands until it is answered, and nobody may be there to answer it.
void AppCoordinator::endPreview() {
    const auto &shown = m_takeoverWindowController.currentContext();
    if (shown && shown == m_preview)
        m_takeoverWindowController.hide();
}

} // namespace vantrel
