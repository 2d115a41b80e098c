#include "WorkHours.h"

#include <preferences/PreferencesStore.h>

namespace vantrel {

WorkHours WorkHours::of(const PreferencesStore &preferences) {
    return {preferences.workHoursEnabled(), preferences.workHoursStartMinute(),
            preferences.workHoursEndMinute(), preferences.workHoursWeekdays()};
}

bool WorkHours::contains(Instant moment, const LocalCalendar &calendar) const {
    if (!isEnabled)
        return true;
    if (!weekdays.contains(calendar.weekday(moment)))
        return false;
    const int minute = calendar.minuteOfDay(moment);
    if (startMinute <= endMinute)
        return startMinute <= minute && minute < endMinute;
    return minute >= startMinute || minute < endMinute;
}

} // namespace vantrel
