#include "MenuBarDisplayFormatter.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// In characters as people count them.
constexpr int longestTitle = 20;
constexpr int keptOfALongerTitle = 19;

bool isInProgress(const UpcomingEvent &event, Instant now) {
    return event.startDate <= now && event.endDate > now;
}

QString shortened(const QString &title) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, title);
    qsizetype end = 0;
    for (int character = 1; finder.toNextBoundary() != -1; ++character) {
        if (character == keptOfALongerTitle)
            end = finder.position();
        if (character > longestTitle)
            return title.first(end) + QChar(0x2026);
    }
    return title;
}

QString joined(const UpcomingEvent &event, const QString &phrase) {
    return shortened(event.title) + QStringLiteral(u" \u2022 ") + phrase;
}

} // namespace

std::optional<UpcomingEvent>
MenuBarDisplayFormatter::pickDisplayEvent(const std::vector<UpcomingEvent> &events, Instant now,
                                          std::optional<std::int64_t> horizonMinutes) {
    const auto underWay = std::ranges::find_if(
        events, [now](const UpcomingEvent &event) { return isInProgress(event, now); });
    if (underWay != events.end())
        return *underWay;
    const auto comesUp = [&](const UpcomingEvent &event) {
        return event.startDate > now &&
               (!horizonMinutes ||
                event.startDate <= now + Seconds{static_cast<double>(*horizonMinutes) * 60.0});
    };
    const auto next = std::ranges::find_if(events, comesUp);
    return next != events.end() ? std::optional(*next) : std::nullopt;
}

std::optional<QString> MenuBarDisplayFormatter::text(const std::vector<UpcomingEvent> &events,
                                                     Instant now) {
    const auto event = pickDisplayEvent(events, now, std::nullopt);
    if (!event)
        return std::nullopt;
    return joined(*event, countdownPhrase(*event, now));
}

QString MenuBarDisplayFormatter::widestText(const UpcomingEvent &event, Instant now) {
    // All phrases are of a few letters and figures: the longest is the widest.
    QString widest = QStringLiteral("starting now");
    for (const Instant moment : {now, event.startDate}) {
        const QString phrase = countdownPhrase(event, moment);
        if (phrase.size() > widest.size())
            widest = phrase;
    }
    std::ranges::replace_if(
        widest, [](QChar letter) { return letter.isDigit(); }, QChar(u'0'));
    return joined(event, widest);
}

QString MenuBarDisplayFormatter::countdownPhrase(const UpcomingEvent &event, Instant now) {
    if (isInProgress(event, now)) {
        const std::int64_t minutes = minutesRemaining(event.endDate, now);
        return minutes < 1 ? QStringLiteral("ending now")
                           : QStringLiteral("ends in %1 min").arg(minutes);
    }
    const std::int64_t minutes = minutesRemaining(event.startDate, now);
    return minutes < 1 ? QStringLiteral("starting now") : QStringLiteral("in %1 min").arg(minutes);
}

std::int64_t MenuBarDisplayFormatter::minutesRemaining(Instant until, Instant from) {
    const double seconds = (until - from).count();
    return seconds > 0.0 ? static_cast<std::int64_t>(std::ceil(seconds / 60.0)) : 0;
}

} // namespace vantrel
