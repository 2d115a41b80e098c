#pragma once

#include "DateRange.h"
#include "DayBucket.h"
#include "RescueLogStore.h"
#include "RescueStats.h"

#include <platform/LocalCalendar.h>
#include <platform/Published.h>
#include <platform/Time.h>

#include <cstdint>
#include <functional>

namespace vantrel {

/// From where the user joined a meeting.
enum class RescueSource { takeover, popover };

/// Counts, day by day, the meetings that the user joined because the program fetched them, and how
/// takeovers were turned away. Each record is saved before it returns. Main thread only.
///
/// A count or a sum beyond 64 bits stops the program.
class RescueLog {
public:
    /// Loads what the store holds. `clock` answers the current instant; `calendar` sets the zone
    /// by which a record finds its day.
    RescueLog(RescueLogStore store, std::function<Instant()> clock, CurrentCalendar calendar);
    RescueLog(const RescueLog &) = delete;
    RescueLog &operator=(const RescueLog &) = delete;

    /// A day has an entry once something was counted on it.
    [[nodiscard]] const DayBuckets &byDay() const { return m_byDay.value(); }

    /// Calls `subscriber` with the days at once and after each record, before they are stored.
    [[nodiscard]] Subscription subscribe(std::function<void(const DayBuckets &)> subscriber);

    void recordRescue(RescueSource source);
    void recordSnooze();
    void recordDismiss();

    [[nodiscard]] RescueStats stats(const DateRange &range) const;

    /// The last `count` days up to today, by the log's own clock and calendar.
    [[nodiscard]] DateRange lastDays(int count) const;

private:
    void mutateToday(std::int64_t DayBucket::*count);

    Published<DayBuckets> m_byDay;
    RescueLogStore m_store;
    std::function<Instant()> m_clock;
    CurrentCalendar m_calendar;
};

} // namespace vantrel
