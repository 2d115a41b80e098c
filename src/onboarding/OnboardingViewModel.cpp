#include "OnboardingViewModel.h"

#include <theme/ThemeOffer.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds pollInterval{0.5};

template <typename List, typename Value>
int placeIn(const List &list, Value value) {
    return static_cast<int>(
        std::distance(list.begin(), std::find(list.begin(), list.end(), value)));
}

} // namespace

OnboardingViewModel::OnboardingViewModel(OnboardingState &state, MainQueue &queue)
    : m_state(state),
      m_queue(queue),
      m_step(state.step()),
      m_theme(state.preferences().selectedTheme()),
      m_hasCalendarAccess(state.hasCalendarAccess()) {
    m_subscriptions = {state.changed.subscribe([this] { follow(); }),
                       state.preferences().selectedThemePublisher().subscribe([this](Theme theme) {
                           m_theme = theme;
                           Q_EMIT changed();
                       })};
}

void OnboardingViewModel::follow() {
    m_hasCalendarAccess = m_state.hasCalendarAccess();
    Q_EMIT changed();
    // Its own: a page that is being made has things read, which must not make it anew.
    if (std::exchange(m_step, m_state.step()) != m_state.step())
        Q_EMIT stepChanged();
}

ThemePalette OnboardingViewModel::palette() const {
    return ThemePalette(vantrel::palette(m_theme));
}

QString OnboardingViewModel::step() const {
    switch (m_step) {
    case OnboardingStep::welcome:
        return QStringLiteral("welcome");
    case OnboardingStep::calendar:
        return QStringLiteral("calendar");
    case OnboardingStep::notifications:
        return QStringLiteral("notifications");
    case OnboardingStep::theme:
        return QStringLiteral("theme");
    case OnboardingStep::demoTakeover:
        return QStringLiteral("demoTakeover");
    case OnboardingStep::launchAtLogin:
        return QStringLiteral("launchAtLogin");
    case OnboardingStep::done:
        return QStringLiteral("done");
    }
    Q_UNREACHABLE();
}

int OnboardingViewModel::stepNumber() const {
    return placeIn(allOnboardingSteps, m_step) + 1;
}

int OnboardingViewModel::stepCount() const {
    return static_cast<int>(allOnboardingSteps.size()) - 1;
}

bool OnboardingViewModel::areNotificationsAllowed() const {
    return m_state.notificationAuthStatus() == NotificationPermission::Status::authorized;
}

QVariantList OnboardingViewModel::themes() const {
    return themeOffers();
}

int OnboardingViewModel::selectedTheme() const {
    return placeIn(allThemes, m_theme);
}

void OnboardingViewModel::selectTheme(int index) {
    m_state.preferences().setSelectedTheme(allThemes.at(static_cast<std::size_t>(index)));
}

QString OnboardingViewModel::launchAtLoginError() const {
    return m_state.launchAtLoginError().value_or(QString());
}

void OnboardingViewModel::watchCalendarAccess() {
    m_poll = m_queue.every(pollInterval, [this] { lookAtCalendarAccess(); });
}

void OnboardingViewModel::lookAtCalendarAccess() {
    const bool hasAccess = m_state.hasCalendarAccess();
    if (hasAccess == m_hasCalendarAccess)
        return;
    m_hasCalendarAccess = hasAccess;
    Q_EMIT changed();
}

void OnboardingViewModel::refresh() {
    m_state.launchAtLogin().refresh();
    m_state.refreshNotificationStatus();
    Q_EMIT changed();
}

} // namespace vantrel
