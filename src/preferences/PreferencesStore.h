#pragma once

#include "SettingPublisher.h"

#include <links/JoinTarget.h>
#include <platform/Published.h>
#include <platform/UserDefaults.h>
#include <theme/Theme.h>

#include <QString>

#include <cstdint>
#include <set>

namespace vantrel {

/// The one place where the user's settings live. Every assignment is announced, stored and written
/// through to the defaults at once. Main thread only; subscribers are called synchronously.
///
/// What somebody else changes in the defaults is announced and stored as it stands there, too.
///
/// Values are taken from the defaults as they stand there; a range is enforced only on assignment.
/// A value beyond its range is announced and stored, and at once assigned anew with the nearest
/// bound; only that one is written.
class PreferencesStore {
public:
    /// Reads every setting and writes nothing. `defaults` must outlive the store.
    explicit PreferencesStore(UserDefaults &defaults);
    PreferencesStore(const PreferencesStore &) = delete;
    PreferencesStore &operator=(const PreferencesStore &) = delete;

    /// Announced before any setting changes.
    Announcer<> willChange;

    /// The calendars to watch, by identifier.
    [[nodiscard]] const std::set<QString> &selectedCalendarIDs() const {
        return m_selectedCalendarIDs.value();
    }
    [[nodiscard]] SettingPublisher<std::set<QString>> selectedCalendarIDsPublisher() {
        return SettingPublisher(m_selectedCalendarIDs);
    }
    void setSelectedCalendarIDs(const std::set<QString> &value);
    /// Adds one calendar to the selection or takes it out; either may be the case already.
    void setSelected(const QString &calendarID, bool isSelected);

    /// How long before its start a meeting takes over the screen; 0 to 300.
    [[nodiscard]] std::int64_t leadTimeSeconds() const { return m_leadTimeSeconds.value(); }
    [[nodiscard]] SettingPublisher<std::int64_t> leadTimeSecondsPublisher() {
        return SettingPublisher(m_leadTimeSeconds);
    }
    void setLeadTimeSeconds(std::int64_t value);

    [[nodiscard]] JoinTarget joinTarget() const { return m_joinTarget.value(); }
    [[nodiscard]] SettingPublisher<JoinTarget> joinTargetPublisher() {
        return SettingPublisher(m_joinTarget);
    }
    void setJoinTarget(JoinTarget value);

    [[nodiscard]] bool isPaused() const { return m_isPaused.value(); }
    [[nodiscard]] SettingPublisher<bool> isPausedPublisher() {
        return SettingPublisher(m_isPaused);
    }
    void setIsPaused(bool value);

    [[nodiscard]] bool workHoursEnabled() const { return m_workHoursEnabled.value(); }
    [[nodiscard]] SettingPublisher<bool> workHoursEnabledPublisher() {
        return SettingPublisher(m_workHoursEnabled);
    }
    void setWorkHoursEnabled(bool value);

    /// Minutes after local midnight, 0 to 1439; the start belongs to the work hours.
    [[nodiscard]] std::int64_t workHoursStartMinute() const {
        return m_workHoursStartMinute.value();
    }
    [[nodiscard]] SettingPublisher<std::int64_t> workHoursStartMinutePublisher() {
        return SettingPublisher(m_workHoursStartMinute);
    }
    void setWorkHoursStartMinute(std::int64_t value);

    /// Minutes after local midnight, 0 to 1439; the end does not belong to the work hours. It may
    /// lie before the start.
    [[nodiscard]] std::int64_t workHoursEndMinute() const { return m_workHoursEndMinute.value(); }
    [[nodiscard]] SettingPublisher<std::int64_t> workHoursEndMinutePublisher() {
        return SettingPublisher(m_workHoursEndMinute);
    }
    void setWorkHoursEndMinute(std::int64_t value);

    /// 1 = Sunday to 7 = Saturday.
    [[nodiscard]] const std::set<std::int64_t> &workHoursWeekdays() const {
        return m_workHoursWeekdays.value();
    }
    [[nodiscard]] SettingPublisher<std::set<std::int64_t>> workHoursWeekdaysPublisher() {
        return SettingPublisher(m_workHoursWeekdays);
    }
    void setWorkHoursWeekdays(const std::set<std::int64_t> &value);

    [[nodiscard]] bool showNextMeetingInMenuBar() const {
        return m_showNextMeetingInMenuBar.value();
    }
    [[nodiscard]] SettingPublisher<bool> showNextMeetingInMenuBarPublisher() {
        return SettingPublisher(m_showNextMeetingInMenuBar);
    }
    void setShowNextMeetingInMenuBar(bool value);

    /// How far ahead the menu bar shows a meeting; 30 to 480.
    [[nodiscard]] std::int64_t menuBarUpcomingHorizonMinutes() const {
        return m_menuBarUpcomingHorizonMinutes.value();
    }
    [[nodiscard]] SettingPublisher<std::int64_t> menuBarUpcomingHorizonMinutesPublisher() {
        return SettingPublisher(m_menuBarUpcomingHorizonMinutes);
    }
    void setMenuBarUpcomingHorizonMinutes(std::int64_t value);

    /// The name of the shortcut to run on joining; empty for none.
    [[nodiscard]] const QString &shortcutOnJoin() const { return m_shortcutOnJoin.value(); }
    [[nodiscard]] SettingPublisher<QString> shortcutOnJoinPublisher() {
        return SettingPublisher(m_shortcutOnJoin);
    }
    void setShortcutOnJoin(const QString &value);

    [[nodiscard]] Theme selectedTheme() const { return m_selectedTheme.value(); }
    [[nodiscard]] SettingPublisher<Theme> selectedThemePublisher() {
        return SettingPublisher(m_selectedTheme);
    }
    void setSelectedTheme(Theme value);

    /// 1 to 15.
    [[nodiscard]] std::int64_t snoozeDurationMinutes() const {
        return m_snoozeDurationMinutes.value();
    }
    [[nodiscard]] SettingPublisher<std::int64_t> snoozeDurationMinutesPublisher() {
        return SettingPublisher(m_snoozeDurationMinutes);
    }
    void setSnoozeDurationMinutes(std::int64_t value);

    /// How long a takeover waits for an answer, 0 to 3600; 0 for ever.
    [[nodiscard]] std::int64_t autoCloseSeconds() const { return m_autoCloseSeconds.value(); }
    [[nodiscard]] SettingPublisher<std::int64_t> autoCloseSecondsPublisher() {
        return SettingPublisher(m_autoCloseSeconds);
    }
    void setAutoCloseSeconds(std::int64_t value);

    /// Brings every setting back to its default. What else stands in the defaults stays.
    void resetAll();

private:
    struct IntegerSetting;

    void loadAgain();

    template <typename T>
    void publish(Published<T> &member, const T &value);
    template <typename T>
    void publishChange(Published<T> &member, const T &value);
    void assign(Published<std::int64_t> &member, const IntegerSetting &setting, std::int64_t value);

    UserDefaults &m_defaults;
    Published<std::set<QString>> m_selectedCalendarIDs;
    Published<std::int64_t> m_leadTimeSeconds;
    Published<JoinTarget> m_joinTarget;
    Published<bool> m_isPaused;
    Published<bool> m_workHoursEnabled;
    Published<std::int64_t> m_workHoursStartMinute;
    Published<std::int64_t> m_workHoursEndMinute;
    Published<std::set<std::int64_t>> m_workHoursWeekdays;
    Published<bool> m_showNextMeetingInMenuBar;
    Published<std::int64_t> m_menuBarUpcomingHorizonMinutes;
    Published<QString> m_shortcutOnJoin;
    Published<Theme> m_selectedTheme;
    Published<std::int64_t> m_snoozeDurationMinutes;
    Published<std::int64_t> m_autoCloseSeconds;
    Subscription m_changesOutside;
};

} // namespace vantrel
