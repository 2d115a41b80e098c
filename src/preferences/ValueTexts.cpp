#include "ValueTexts.h"

namespace vantrel {

namespace {

constexpr std::int64_t secondsOfMinute = 60;
constexpr std::int64_t minutesOfHour = 60;

} // namespace

QString leadTimeText(std::int64_t seconds) {
    if (seconds == 0)
        return QStringLiteral("at start");
    return QStringLiteral("%1 min before").arg(seconds / secondsOfMinute);
}

QString snoozeDurationText(std::int64_t minutes) {
    return QStringLiteral("%1 min").arg(minutes);
}

QString autoCloseText(std::int64_t seconds) {
    if (seconds == 0)
        return QStringLiteral("off");
    const std::int64_t minutes = seconds / secondsOfMinute;
    return minutes == minutesOfHour ? QStringLiteral("1 hour")
                                    : QStringLiteral("%1 min").arg(minutes);
}

QString upcomingHorizonText(std::int64_t minutes) {
    const std::int64_t hours = minutes / minutesOfHour;
    const std::int64_t rest = minutes % minutesOfHour;
    if (hours < 1)
        return QStringLiteral("%1 min").arg(minutes);
    const QString whole =
        hours == 1 ? QStringLiteral("1 hour") : QStringLiteral("%1 hours").arg(hours);
    return rest == 0 ? whole : QStringLiteral("%1 %2 min").arg(whole).arg(rest);
}

} // namespace vantrel
