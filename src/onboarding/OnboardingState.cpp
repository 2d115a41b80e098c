#include "OnboardingState.h"

#include <algorithm>
#include <utility>

namespace vantrel {

OnboardingState::OnboardingState(PreferencesStore &preferences, CalendarAccess &calendarAccess,
                                 LaunchAtLoginManager &launchAtLogin,
                                 NotificationPermission &notifications,
                                 std::function<void()> previewTakeover)
    : m_preferences(preferences),
      m_calendarAccess(calendarAccess),
      m_launchAtLogin(launchAtLogin),
      m_notifications(notifications),
      m_previewTakeover(std::move(previewTakeover)) {}

bool OnboardingState::hasCalendarAccess() const {
    return m_calendarAccess.currentStatus() == CalendarAccess::Status::fullAccess;
}

bool OnboardingState::isComplete(OnboardingStep step) const {
    switch (step) {
    case OnboardingStep::calendar:
        return hasCalendarAccess();
    case OnboardingStep::done:
        return false;
    default:
        return m_acknowledgedSteps.contains(step);
    }
}

void OnboardingState::show(OnboardingStep step) {
    m_step = step;
    changed.announce();
}

void OnboardingState::advance() {
    const auto next =
        std::find_if(allOnboardingSteps.begin(), allOnboardingSteps.end(),
                     [this](OnboardingStep step) { return step > m_step && !isComplete(step); });
    if (next != allOnboardingSteps.end() && *next != OnboardingStep::done)
        show(*next);
    else if (onFinished)
        onFinished();
}

void OnboardingState::goBack() {
    const auto current = std::find(allOnboardingSteps.begin(), allOnboardingSteps.end(), m_step);
    if (current != allOnboardingSteps.begin())
        show(*std::prev(current));
}

void OnboardingState::advanceToFirstIncompleteStep() {
    // The last one is never complete.
    show(*std::find_if(allOnboardingSteps.begin(), allOnboardingSteps.end(),
                       [this](OnboardingStep step) { return !isComplete(step); }));
}

void OnboardingState::acknowledge() {
    m_acknowledgedSteps.insert(m_step);
    advance();
}

void OnboardingState::requestCalendarAccess() {
    if (std::exchange(m_calendarRequestInProgress, true))
        return;
    changed.announce();
    m_calendarAccess.requestFullAccess(
        [this, life = std::weak_ptr<char>(m_life)](CalendarAccess::Status) {
            if (life.expired())
                return;
            m_calendarRequestInProgress = false;
            changed.announce();
        });
}

void OnboardingState::refreshNotificationStatus() {
    m_notifications.readStatus(
        [this, life = std::weak_ptr<char>(m_life)](NotificationPermission::Status status) {
            if (life.expired())
                return;
            m_notificationAuthStatus = status;
            changed.announce();
        });
}

void OnboardingState::requestNotifications() {
    m_notifications.requestAuthorization(
        {NotificationKind::alert, NotificationKind::sound},
        [this, life = std::weak_ptr<char>(m_life)](bool, const std::optional<QString> &) {
            if (life.expired())
                return;
            refreshNotificationStatus();
            // The user may have gone elsewhere while the desktop took its time.
            if (m_step == OnboardingStep::notifications)
                acknowledge();
        });
}

void OnboardingState::setLaunchAtLogin(bool on) {
    m_launchAtLoginError = m_launchAtLogin.setEnabled(on);
    changed.announce();
}

} // namespace vantrel
