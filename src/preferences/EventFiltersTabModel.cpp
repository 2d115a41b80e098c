#include "EventFiltersTabModel.h"

#include "WeekdayOffer.h"
#include "WorkHoursWords.h"

#include <set>
#include <utility>

namespace vantrel {

EventFiltersTabModel::EventFiltersTabModel(PreferencesStore &preferences,
                                           CurrentCalendar currentCalendar)
    : m_preferences(preferences),
      m_currentCalendar(std::move(currentCalendar)),
      m_workHours(preferences.workHoursEnabledPublisher(),
                  [&preferences](bool isOn) { preferences.setWorkHoursEnabled(isOn); }),
      m_start(
          preferences.workHoursStartMinutePublisher(),
          [&preferences](std::int64_t minute) { preferences.setWorkHoursStartMinute(minute); },
          m_currentCalendar),
      m_end(
          preferences.workHoursEndMinutePublisher(),
          [&preferences](std::int64_t minute) { preferences.setWorkHoursEndMinute(minute); },
          m_currentCalendar),
      m_subscription(preferences.workHoursWeekdaysPublisher().subscribe(
          [this](const std::set<std::int64_t> &weekdays) {
              m_chosenWeekdays = QList<int>(weekdays.begin(), weekdays.end());
              Q_EMIT windowChanged();
          })) {
    connect(&m_workHours, &FlagSetting::changed, this, &EventFiltersTabModel::windowChanged);
    connect(&m_start, &NumberSetting::changed, this, &EventFiltersTabModel::windowChanged);
    connect(&m_end, &NumberSetting::changed, this, &EventFiltersTabModel::windowChanged);
}

QVariantList EventFiltersTabModel::weekdays() const {
    const QLocale locale = m_currentCalendar().locale();
    QVariantList offers;
    for (const int weekday : weekdaysInOrder(locale))
        offers.append(QVariant::fromValue(
            WeekdayOffer{weekday, weekdayName(weekday, locale, QLocale::ShortFormat),
                         weekdayName(weekday, locale)}));
    return offers;
}

QString EventFiltersTabModel::meaning() const {
    if (!m_workHours.isOn())
        return QStringLiteral("Takeovers come at any hour of every day.");
    return workHoursWords(m_start.number(), m_end.number(),
                          {m_chosenWeekdays.begin(), m_chosenWeekdays.end()}, m_currentCalendar());
}

void EventFiltersTabModel::choose(int weekday, bool isChosen) const {
    std::set<std::int64_t> weekdays = m_preferences.workHoursWeekdays();
    if (isChosen)
        weekdays.insert(weekday);
    else
        weekdays.erase(weekday);
    m_preferences.setWorkHoursWeekdays(weekdays);
}

void EventFiltersTabModel::refresh() {
    Q_EMIT localeChanged();
    m_start.refresh();
    m_end.refresh();
}

} // namespace vantrel
