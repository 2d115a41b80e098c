#include "DateRange.h"

#include "RescueDateKey.h"

#include <utility>

namespace vantrel {

DateRange::DateRange(std::optional<std::vector<QString>> days) : m_days(std::move(days)) {}

DateRange DateRange::allTime() {
    return DateRange(std::nullopt);
}

DateRange DateRange::days(std::vector<QString> keys) {
    return DateRange(std::move(keys));
}

DateRange DateRange::lastDays(int count, Instant endingOn, const LocalCalendar &calendar) {
    std::vector<QString> keys;
    const RescueDateKey::Formatter formatter = RescueDateKey::formatter(calendar);
    const QDate lastDay = calendar.dateTime(endingOn).date();
    for (int step = 0; step < count; ++step) {
        const QDateTime start = lastDay.addDays(-step).startOfDay(calendar.timeZone());
        if (!start.isValid())
            continue;
        const Seconds sinceEpoch = std::chrono::milliseconds(start.toMSecsSinceEpoch());
        keys.push_back(formatter.string(Instant(sinceEpoch)));
    }
    return days(std::move(keys));
}

const std::vector<QString> *DateRange::asDays() const {
    return m_days ? &*m_days : nullptr;
}

} // namespace vantrel
