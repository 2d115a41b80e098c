#pragma once

#include <fakes/Times.h>
#include <linux/eventstore/ical/ComponentReader.h>
#include <linux/eventstore/ical/ComponentsByUid.h>
#include <linux/eventstore/ical/EventTexts.h>
#include <linux/eventstore/ical/SeriesExpander.h>
#include <linux/eventstore/ical/ZoneRegistry.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vantrel::tests {

/// What a calendar text shows between two local times of a user in a zone: one line for each
/// occurrence, "start/end title" in UTC, by start. An end on the start's own day is a time alone.
class ExpandedText {
public:
    ExpandedText(const QByteArray &text, const char *from, const char *to, const char *userZone)
        : m_zone(QTimeZone(userZone)),
          m_window{seconds(fakes::at(from, userZone)), seconds(fakes::at(to, userZone))},
          m_text(readCalendarText(text, m_registry)) {
        const SeriesExpander expander(UserClock(m_zone), m_window);
        StepBudget budget;
        ComponentsByUid(m_text.events).forEach([&](UidHash, const auto &components) {
            const Expansion expansion = expander.expand(components, budget, m_text.problems);
            m_due = std::min(m_due, expansion.due);
            for (const Occurrence &occurrence : expansion.occurrences)
                add(occurrence);
        });
        std::sort(lines.begin(), lines.end());
        for (const Problem &problem : m_text.problems.kept())
            problems.push_back(problem.reason.toStdString());
    }

    std::vector<std::string> lines;
    std::vector<std::string> problems;

    /// The instant from which on there is more, as UTC text; "never" when there is no more.
    [[nodiscard]] std::string due() const {
        return m_due == Expansion::never ? "never" : text(m_due, "yyyy-MM-dd HH:mm");
    }

private:
    static UtcSeconds seconds(Instant instant) {
        return static_cast<UtcSeconds>(instant.time_since_epoch().count());
    }

    static std::string text(UtcSeconds utc, const char *format) {
        return QDateTime::fromSecsSinceEpoch(utc, Qt::UTC)
            .toString(QLatin1String(format))
            .toStdString();
    }

    void add(const Occurrence &occurrence) {
        const bool isSameDay = civilDay(occurrence.start) == civilDay(occurrence.end);
        const QStringList none;
        const auto title = eventOf(*occurrence.component, none).title.value_or(QString());
        lines.push_back(text(occurrence.start, "yyyy-MM-dd HH:mm") + "/" +
                        text(occurrence.end, isSameDay ? "HH:mm" : "yyyy-MM-dd HH:mm") +
                        (title.isEmpty() ? "" : " " + title.toStdString()));
    }

    ZoneRegistry m_registry;
    Zone m_zone;
    Window m_window;
    CalendarText m_text;
    UtcSeconds m_due = Expansion::never;
};

} // namespace vantrel::tests
