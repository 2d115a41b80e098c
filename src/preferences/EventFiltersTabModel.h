#pragma once

#include "FlagSetting.h"
#include "PreferencesStore.h"
#include "TimeSetting.h"

#include <platform/LocalCalendar.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantrel {

/// What the page about work hours shows. Main thread only.
class EventFiltersTabModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(vantrel::FlagSetting *workHours READ workHours CONSTANT FINAL)
    Q_PROPERTY(vantrel::TimeSetting *start READ start CONSTANT FINAL)
    Q_PROPERTY(vantrel::TimeSetting *end READ end CONSTANT FINAL)
    Q_PROPERTY(QVariantList weekdays READ weekdays NOTIFY localeChanged FINAL)
    Q_PROPERTY(QList<int> chosenWeekdays READ chosenWeekdays NOTIFY windowChanged FINAL)
    Q_PROPERTY(QString meaning READ meaning NOTIFY windowChanged FINAL)

public:
    /// `preferences` must outlive the model.
    EventFiltersTabModel(PreferencesStore &preferences, CurrentCalendar currentCalendar);

    [[nodiscard]] FlagSetting *workHours() { return &m_workHours; }
    [[nodiscard]] TimeSetting *start() { return &m_start; }
    [[nodiscard]] TimeSetting *end() { return &m_end; } ///< The first minute after the window.

    /// Of `WeekdayOffer`, as the user's week begins.
    [[nodiscard]] QVariantList weekdays() const;

    /// 1 = Sunday to 7 = Saturday.
    [[nodiscard]] const QList<int> &chosenWeekdays() const { return m_chosenWeekdays; }

    /// What the window means, in words.
    [[nodiscard]] QString meaning() const;

    Q_INVOKABLE void choose(int weekday, bool isChosen) const;

    /// Names days and times anew: the user's language may have changed.
    void refresh();

Q_SIGNALS:
    void localeChanged();
    void windowChanged();

private:
    PreferencesStore &m_preferences;
    const CurrentCalendar m_currentCalendar;
    FlagSetting m_workHours;
    TimeSetting m_start;
    TimeSetting m_end;
    QList<int> m_chosenWeekdays;
    Subscription m_subscription;
};

} // namespace vantrel
