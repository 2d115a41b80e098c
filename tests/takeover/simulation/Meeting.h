#pragma once

#include <QString>

#include <cstdint>
#include <set>

namespace vantrel::simulation {

/// Microseconds: since 1970 on the wall clock, since the start of the run otherwise. Whole numbers,
/// so that a moment is the same moment however it was reckoned.
using Micros = std::int64_t;

inline constexpr Micros microsPerSecond = 1'000'000;

/// How one gets into a meeting.
enum class Way { video, phone, place, nothing };

/// One entry of a simulated calendar: a single meeting or one occurrence of a series, all of which
/// share one identifier.
struct Meeting {
    QString identifier;
    QString title;
    QString calendar;
    std::int64_t start = 0; ///< Whole seconds since 1970.
    std::int64_t end = 0;
    Way way = Way::nothing;
    bool isAllDay = false;
    bool isCancelled = false;
    bool isDeclined = false;
    bool isOfASeries = false;
};

/// The settings that matter to takeovers, with their defaults.
struct Settings {
    std::set<QString> selectedCalendars;
    std::int64_t leadTimeSeconds = 60;
    bool isPaused = false;
    bool workHoursEnabled = false;
    std::int64_t workHoursStartMinute = 540;
    std::int64_t workHoursEndMinute = 1020;
    std::set<std::int64_t> workHoursWeekdays{2, 3, 4, 5, 6};
    std::int64_t snoozeDurationMinutes = 1;
    std::int64_t autoCloseSeconds = 900;
};

enum class Answer { join, snooze, dismiss };

inline QString videoUrl(const QString &identifier) {
    return QStringLiteral("https://zoom.us/j/") + identifier.mid(1);
}

} // namespace vantrel::simulation
