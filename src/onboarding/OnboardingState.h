#pragma once

#include "OnboardingStep.h"

#include <calendar/CalendarAccess.h>
#include <platform/NotificationPermission.h>
#include <platform/Published.h>
#include <preferences/PreferencesStore.h>
#include <system/LaunchAtLoginManager.h>

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <set>

namespace vantrel {

/// Where the user is in the first run, and what each of its steps does. What they have passed is
/// forgotten with it. Main thread only.
class OnboardingState {
public:
    /// All of them must outlive the state. `previewTakeover` shows what a takeover looks like.
    OnboardingState(PreferencesStore &preferences, CalendarAccess &calendarAccess,
                    LaunchAtLoginManager &launchAtLogin, NotificationPermission &notifications,
                    std::function<void()> previewTakeover);
    OnboardingState(const OnboardingState &) = delete;
    OnboardingState &operator=(const OnboardingState &) = delete;

    /// Announced after any of what the state itself holds has become another.
    Announcer<> changed;

    /// What ends the flow; may be empty.
    std::function<void()> onFinished;

    [[nodiscard]] OnboardingStep step() const { return m_step; }
    [[nodiscard]] const std::set<OnboardingStep> &acknowledgedSteps() const {
        return m_acknowledgedSteps;
    }
    [[nodiscard]] NotificationPermission::Status notificationAuthStatus() const {
        return m_notificationAuthStatus;
    }
    [[nodiscard]] bool calendarRequestInProgress() const { return m_calendarRequestInProgress; }
    /// Why the program could not be set to start at login, or not to; empty when it could.
    [[nodiscard]] const std::optional<QString> &launchAtLoginError() const {
        return m_launchAtLoginError;
    }

    [[nodiscard]] PreferencesStore &preferences() const { return m_preferences; }
    [[nodiscard]] LaunchAtLoginManager &launchAtLogin() const { return m_launchAtLogin; }

    /// Asks the calendars' store each time.
    [[nodiscard]] bool hasCalendarAccess() const;

    /// Goes on to the next step that is not complete; from the last one on it ends the flow.
    void advance();

    void goBack();

    /// As at a new start of the window.
    void advanceToFirstIncompleteStep();

    /// The user has passed the step on which they are.
    void acknowledge();

    /// Has the user asked for their calendars. While the question stands no other is asked.
    void requestCalendarAccess();

    void refreshNotificationStatus();

    /// Asks for alerts and sounds and goes on, whatever the answer.
    void requestNotifications();

    void setLaunchAtLogin(bool on);

    void previewTakeover() const { m_previewTakeover(); }

private:
    [[nodiscard]] bool isComplete(OnboardingStep step) const;
    void show(OnboardingStep step);

    PreferencesStore &m_preferences;
    CalendarAccess &m_calendarAccess;
    LaunchAtLoginManager &m_launchAtLogin;
    NotificationPermission &m_notifications;
    const std::function<void()> m_previewTakeover;
    OnboardingStep m_step = OnboardingStep::welcome;
    std::set<OnboardingStep> m_acknowledgedSteps;
    NotificationPermission::Status m_notificationAuthStatus =
        NotificationPermission::Status::notDetermined;
    bool m_calendarRequestInProgress = false;
    std::optional<QString> m_launchAtLoginError;
    std::shared_ptr<char> m_life = std::make_shared<char>(); ///< Answers may come after the end.
};

} // namespace vantrel
