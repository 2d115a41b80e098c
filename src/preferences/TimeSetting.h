#pragma once

#include "NumberSetting.h"

#include <platform/LocalCalendar.h>

namespace vantrel {

/// A time of day among the settings, in minutes after midnight, as a field shows it. Main thread
/// only.
class TimeSetting : public vantrel::NumberSetting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")

public:
    /// `assign` must be good as long as the object.
    TimeSetting(const SettingPublisher<std::int64_t> &setting,
                std::function<void(std::int64_t)> assign, CurrentCalendar currentCalendar);

    /// Takes a time as the user's language writes it, or by a clock of 24 hours: "9:30 PM",
    /// "21:30", "2130", "21". Answers whether it is one; what is none changes nothing.
    Q_INVOKABLE bool assignText(const QString &written) const;

private:
    const CurrentCalendar m_currentCalendar;
};

/// The time of day in the locale's short style.
[[nodiscard]] QString timeOfDayText(std::int64_t minute, const LocalCalendar &calendar);

} // namespace vantrel
