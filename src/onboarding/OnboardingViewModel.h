#pragma once

#include "OnboardingState.h"

#include <platform/MainQueue.h>
#include <theme/ThemePalette.h>

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantrel {

/// The first run as its view lays it out. Main thread only.
class OnboardingViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(vantrel::ThemePalette palette READ palette NOTIFY changed FINAL)
    Q_PROPERTY(QString step READ step NOTIFY stepChanged FINAL)
    Q_PROPERTY(int stepNumber READ stepNumber NOTIFY stepChanged FINAL)
    Q_PROPERTY(int stepCount READ stepCount CONSTANT FINAL)
    Q_PROPERTY(bool hasCalendarAccess READ hasCalendarAccess NOTIFY changed FINAL)
    Q_PROPERTY(bool isAskingForCalendars READ isAskingForCalendars NOTIFY changed FINAL)
    Q_PROPERTY(bool areNotificationsAllowed READ areNotificationsAllowed NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList themes READ themes CONSTANT FINAL)
    Q_PROPERTY(int selectedTheme READ selectedTheme NOTIFY changed FINAL)
    Q_PROPERTY(bool isLaunchedAtLogin READ isLaunchedAtLogin NOTIFY changed FINAL)
    Q_PROPERTY(QString launchAtLoginError READ launchAtLoginError NOTIFY changed FINAL)

public:
    /// Both must outlive the view model.
    OnboardingViewModel(OnboardingState &state, MainQueue &queue);

    [[nodiscard]] ThemePalette palette() const;

    /// The name of the step's case.
    [[nodiscard]] QString step() const;

    /// From 1 on. The last step, which only comes to those who have passed all others, has none of
    /// its own: it is not counted.
    [[nodiscard]] int stepNumber() const;
    [[nodiscard]] int stepCount() const;

    [[nodiscard]] bool hasCalendarAccess() const { return m_hasCalendarAccess; }
    [[nodiscard]] bool isAskingForCalendars() const { return m_state.calendarRequestInProgress(); }
    [[nodiscard]] bool areNotificationsAllowed() const;

    /// Of `ThemeOffer`.
    [[nodiscard]] QVariantList themes() const;
    /// A place in `themes`.
    [[nodiscard]] int selectedTheme() const;

    [[nodiscard]] bool isLaunchedAtLogin() const { return m_state.launchAtLogin().isEnabled(); }
    /// Empty when there is none.
    [[nodiscard]] QString launchAtLoginError() const;

    Q_INVOKABLE void acknowledge() { m_state.acknowledge(); }
    Q_INVOKABLE void goBack() { m_state.goBack(); }
    Q_INVOKABLE void requestCalendarAccess() { m_state.requestCalendarAccess(); }
    Q_INVOKABLE void requestNotifications() { m_state.requestNotifications(); }
    Q_INVOKABLE void selectTheme(int index);
    Q_INVOKABLE void previewTakeover() const { m_state.previewTakeover(); }
    Q_INVOKABLE void setLaunchAtLogin(bool on) { m_state.setLaunchAtLogin(on); }

    /// From here on the access to the calendars, which may be granted elsewhere, is looked at twice
    /// a second.
    Q_INVOKABLE void watchCalendarAccess();
    Q_INVOKABLE void leaveCalendarAccess() { m_poll.cancel(); }

    /// Reads anew what the desktop may have changed.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void changed();
    void stepChanged();

private:
    void follow();
    void lookAtCalendarAccess();

    OnboardingState &m_state;
    MainQueue &m_queue;
    OnboardingStep m_step;
    Theme m_theme;
    bool m_hasCalendarAccess;
    ScheduledWork m_poll;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vantrel
