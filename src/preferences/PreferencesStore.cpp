#include "PreferencesStore.h"

#include <QLatin1String>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace vantrel {

/// A setting that is a whole number. The range binds assignments only.
struct PreferencesStore::IntegerSetting {
    QLatin1String key;
    std::int64_t defaultValue;
    std::int64_t lowerBound;
    std::int64_t upperBound;

    static const IntegerSetting leadTimeSeconds;
    static const IntegerSetting workHoursStartMinute;
    static const IntegerSetting workHoursEndMinute;
    static const IntegerSetting menuBarUpcomingHorizonMinutes;
    static const IntegerSetting snoozeDurationMinutes;
    static const IntegerSetting autoCloseSeconds;

    /// Any object at all keeps the default away, one that is no number included: it reads as 0.
    [[nodiscard]] std::int64_t load(const UserDefaults &defaults) const {
        return defaults.hasObject(key) ? defaults.integer(key) : defaultValue;
    }

    [[nodiscard]] std::int64_t clamped(std::int64_t value) const {
        return std::clamp(value, lowerBound, upperBound);
    }
};

constexpr PreferencesStore::IntegerSetting PreferencesStore::IntegerSetting::leadTimeSeconds{
    QLatin1String("Vantrel.leadTimeSeconds"), 60, 0, 300};
constexpr PreferencesStore::IntegerSetting PreferencesStore::IntegerSetting::workHoursStartMinute{
    QLatin1String("Vantrel.workHoursStartMinute"), 540, 0, 1439};
constexpr PreferencesStore::IntegerSetting PreferencesStore::IntegerSetting::workHoursEndMinute{
    QLatin1String("Vantrel.workHoursEndMinute"), 1020, 0, 1439};
constexpr PreferencesStore::IntegerSetting
    PreferencesStore::IntegerSetting::menuBarUpcomingHorizonMinutes{
        QLatin1String("Vantrel.menuBarUpcomingHorizonMinutes"), 120, 30, 480};
constexpr PreferencesStore::IntegerSetting PreferencesStore::IntegerSetting::snoozeDurationMinutes{
    QLatin1String("Vantrel.snoozeDurationMinutes"), 1, 1, 15};
constexpr PreferencesStore::IntegerSetting PreferencesStore::IntegerSetting::autoCloseSeconds{
    QLatin1String("Vantrel.autoCloseSeconds"), 900, 0, 3600};

namespace {

constexpr QLatin1String selectedCalendarIDsKey("Vantrel.selectedCalendarIDs");
constexpr QLatin1String joinTargetKey("Vantrel.joinTarget");
constexpr QLatin1String isPausedKey("Vantrel.isPaused");
constexpr QLatin1String workHoursEnabledKey("Vantrel.workHoursEnabled");
constexpr QLatin1String workHoursWeekdaysKey("Vantrel.workHoursWeekdays");
constexpr QLatin1String showNextMeetingInMenuBarKey("Vantrel.showNextMeetingInMenuBar");
constexpr QLatin1String shortcutOnJoinKey("Vantrel.shortcutOnJoin");
constexpr QLatin1String selectedThemeKey("Vantrel.selectedTheme");

std::set<QString> loadSelectedCalendarIDs(const UserDefaults &defaults) {
    const QStringList stored = defaults.stringArray(selectedCalendarIDsKey).value_or(QStringList());
    return {stored.begin(), stored.end()};
}

JoinTarget loadJoinTarget(const UserDefaults &defaults) {
    const auto stored = defaults.string(joinTargetKey);
    return (stored ? joinTargetFromRawValue(*stored) : std::nullopt)
        .value_or(JoinTarget::appWhenInstalled);
}

std::set<std::int64_t> loadWorkHoursWeekdays(const UserDefaults &defaults) {
    const auto stored = defaults.integerArray(workHoursWeekdaysKey);
    if (!stored)
        return {2, 3, 4, 5, 6};
    return {stored->begin(), stored->end()};
}

bool loadShowNextMeetingInMenuBar(const UserDefaults &defaults) {
    return !defaults.hasObject(showNextMeetingInMenuBarKey) ||
           defaults.boolean(showNextMeetingInMenuBarKey);
}

QString loadShortcutOnJoin(const UserDefaults &defaults) {
    return defaults.string(shortcutOnJoinKey).value_or(QString());
}

Theme loadSelectedTheme(const UserDefaults &defaults) {
    const auto stored = defaults.string(selectedThemeKey);
    return (stored ? themeFromRawValue(*stored) : std::nullopt).value_or(Theme::hearth);
}

} // namespace

PreferencesStore::PreferencesStore(UserDefaults &defaults)
    : m_defaults(defaults),
      m_selectedCalendarIDs(loadSelectedCalendarIDs(defaults)),
      m_leadTimeSeconds(IntegerSetting::leadTimeSeconds.load(defaults)),
      m_joinTarget(loadJoinTarget(defaults)),
      m_isPaused(defaults.boolean(isPausedKey)),
      m_workHoursEnabled(defaults.boolean(workHoursEnabledKey)),
      m_workHoursStartMinute(IntegerSetting::workHoursStartMinute.load(defaults)),
      m_workHoursEndMinute(IntegerSetting::workHoursEndMinute.load(defaults)),
      m_workHoursWeekdays(loadWorkHoursWeekdays(defaults)),
      m_showNextMeetingInMenuBar(loadShowNextMeetingInMenuBar(defaults)),
      m_menuBarUpcomingHorizonMinutes(IntegerSetting::menuBarUpcomingHorizonMinutes.load(defaults)),
      m_shortcutOnJoin(loadShortcutOnJoin(defaults)),
      m_selectedTheme(loadSelectedTheme(defaults)),
      m_snoozeDurationMinutes(IntegerSetting::snoozeDurationMinutes.load(defaults)),
      m_autoCloseSeconds(IntegerSetting::autoCloseSeconds.load(defaults)),
      m_changesOutside(defaults.changedOutside.subscribe([this] { loadAgain(); })) {}

void PreferencesStore::loadAgain() {
    publishChange(m_selectedCalendarIDs, loadSelectedCalendarIDs(m_defaults));
    publishChange(m_leadTimeSeconds, IntegerSetting::leadTimeSeconds.load(m_defaults));
    publishChange(m_joinTarget, loadJoinTarget(m_defaults));
    publishChange(m_isPaused, m_defaults.boolean(isPausedKey));
    publishChange(m_workHoursEnabled, m_defaults.boolean(workHoursEnabledKey));
    publishChange(m_workHoursStartMinute, IntegerSetting::workHoursStartMinute.load(m_defaults));
    publishChange(m_workHoursEndMinute, IntegerSetting::workHoursEndMinute.load(m_defaults));
    publishChange(m_workHoursWeekdays, loadWorkHoursWeekdays(m_defaults));
    publishChange(m_showNextMeetingInMenuBar, loadShowNextMeetingInMenuBar(m_defaults));
    publishChange(m_menuBarUpcomingHorizonMinutes,
                  IntegerSetting::menuBarUpcomingHorizonMinutes.load(m_defaults));
    publishChange(m_shortcutOnJoin, loadShortcutOnJoin(m_defaults));
    publishChange(m_selectedTheme, loadSelectedTheme(m_defaults));
    publishChange(m_snoozeDurationMinutes, IntegerSetting::snoozeDurationMinutes.load(m_defaults));
    publishChange(m_autoCloseSeconds, IntegerSetting::autoCloseSeconds.load(m_defaults));
}

template <typename T>
void PreferencesStore::publish(Published<T> &member, const T &value) {
    willChange.announce();
    member.set(value);
}

template <typename T>
void PreferencesStore::publishChange(Published<T> &member, const T &value) {
    if (value != member.value())
        publish(member, value);
}

void PreferencesStore::assign(Published<std::int64_t> &member, const IntegerSetting &setting,
                              std::int64_t value) {
    publish(member, value);
    const std::int64_t clamped = setting.clamped(member.value());
    if (clamped != member.value())
        assign(member, setting, clamped);
    else
        m_defaults.setInteger(setting.key, clamped);
}

void PreferencesStore::setSelectedCalendarIDs(const std::set<QString> &value) {
    publish(m_selectedCalendarIDs, value);
    m_defaults.setStringArray(selectedCalendarIDsKey, QStringList(value.begin(), value.end()));
}

void PreferencesStore::setSelected(const QString &calendarID, bool isSelected) {
    std::set<QString> selection = selectedCalendarIDs();
    if (isSelected)
        selection.insert(calendarID);
    else
        selection.erase(calendarID);
    setSelectedCalendarIDs(selection);
}

void PreferencesStore::setLeadTimeSeconds(std::int64_t value) {
    assign(m_leadTimeSeconds, IntegerSetting::leadTimeSeconds, value);
}

void PreferencesStore::setJoinTarget(JoinTarget value) {
    publish(m_joinTarget, value);
    m_defaults.setString(joinTargetKey, rawValue(value));
}

void PreferencesStore::setIsPaused(bool value) {
    publish(m_isPaused, value);
    m_defaults.setBoolean(isPausedKey, value);
}

void PreferencesStore::setWorkHoursEnabled(bool value) {
    publish(m_workHoursEnabled, value);
    m_defaults.setBoolean(workHoursEnabledKey, value);
}

void PreferencesStore::setWorkHoursStartMinute(std::int64_t value) {
    assign(m_workHoursStartMinute, IntegerSetting::workHoursStartMinute, value);
}

void PreferencesStore::setWorkHoursEndMinute(std::int64_t value) {
    assign(m_workHoursEndMinute, IntegerSetting::workHoursEndMinute, value);
}

void PreferencesStore::setWorkHoursWeekdays(const std::set<std::int64_t> &value) {
    publish(m_workHoursWeekdays, value);
    m_defaults.setIntegerArray(workHoursWeekdaysKey, {value.begin(), value.end()});
}

void PreferencesStore::setShowNextMeetingInMenuBar(bool value) {
    publish(m_showNextMeetingInMenuBar, value);
    m_defaults.setBoolean(showNextMeetingInMenuBarKey, value);
}

void PreferencesStore::setMenuBarUpcomingHorizonMinutes(std::int64_t value) {
    assign(m_menuBarUpcomingHorizonMinutes, IntegerSetting::menuBarUpcomingHorizonMinutes, value);
}

void PreferencesStore::setShortcutOnJoin(const QString &value) {
    publish(m_shortcutOnJoin, value);
    m_defaults.setString(shortcutOnJoinKey, value);
}

void PreferencesStore::setSelectedTheme(Theme value) {
    publish(m_selectedTheme, value);
    m_defaults.setString(selectedThemeKey, rawValue(value));
}

void PreferencesStore::setSnoozeDurationMinutes(std::int64_t value) {
    assign(m_snoozeDurationMinutes, IntegerSetting::snoozeDurationMinutes, value);
}

void PreferencesStore::setAutoCloseSeconds(std::int64_t value) {
    assign(m_autoCloseSeconds, IntegerSetting::autoCloseSeconds, value);
}

void PreferencesStore::resetAll() {
    for (const QLatin1String key :
         {selectedCalendarIDsKey, IntegerSetting::leadTimeSeconds.key, joinTargetKey, isPausedKey,
          IntegerSetting::autoCloseSeconds.key, showNextMeetingInMenuBarKey,
          IntegerSetting::menuBarUpcomingHorizonMinutes.key, workHoursEnabledKey,
          IntegerSetting::workHoursStartMinute.key, IntegerSetting::workHoursEndMinute.key,
          workHoursWeekdaysKey, selectedThemeKey, IntegerSetting::snoozeDurationMinutes.key,
          shortcutOnJoinKey})
        m_defaults.removeObject(key);

    // A selection that was never made stays told apart from an empty one: the key stays absent.
    publish(m_selectedCalendarIDs, loadSelectedCalendarIDs(m_defaults));
    setLeadTimeSeconds(IntegerSetting::leadTimeSeconds.load(m_defaults));
    setJoinTarget(loadJoinTarget(m_defaults));
    setIsPaused(m_defaults.boolean(isPausedKey));
    setWorkHoursEnabled(m_defaults.boolean(workHoursEnabledKey));
    setWorkHoursStartMinute(IntegerSetting::workHoursStartMinute.load(m_defaults));
    setWorkHoursEndMinute(IntegerSetting::workHoursEndMinute.load(m_defaults));
    setWorkHoursWeekdays(loadWorkHoursWeekdays(m_defaults));
    setShowNextMeetingInMenuBar(loadShowNextMeetingInMenuBar(m_defaults));
    setMenuBarUpcomingHorizonMinutes(
        IntegerSetting::menuBarUpcomingHorizonMinutes.load(m_defaults));
    setShortcutOnJoin(loadShortcutOnJoin(m_defaults));
    setSelectedTheme(loadSelectedTheme(m_defaults));
    setSnoozeDurationMinutes(IntegerSetting::snoozeDurationMinutes.load(m_defaults));
    setAutoCloseSeconds(IntegerSetting::autoCloseSeconds.load(m_defaults));
}

} // namespace vantrel
