#pragma once

#include "CalendarOccurrences.h"

#include <linux/eventstore/source/ComponentSource.h>

#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// Answers every question about the calendars from memory. Main thread only.
class EventIndex {
public:
    /// All calendars of all sources, and what each of these can tell beyond them.
    struct Calendars {
        std::vector<std::shared_ptr<const CalendarOccurrences>> list;
        std::vector<SourceKnowledge> knowledge;
    };

    /// Takes the place of all that was held before, which is handed out: to let go of large
    /// calendars takes its time. The order of the calendars is kept.
    [[nodiscard]] Calendars replace(Calendars calendars);

    [[nodiscard]] std::vector<StoreCalendar> calendars() const;

    /// False as long as nothing is held.
    [[nodiscard]] bool hasAllCalendars() const;

    [[nodiscard]] bool isCalendarDeleted(const QString &calendarIdentifier) const;

    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to, const std::vector<QString> &calendarIdentifiers) const;

    [[nodiscard]] std::optional<StoreEvent> eventWithIdentifier(const QString &eventIdentifier,
                                                                Instant now) const;

private:
    Calendars m_calendars;
    QHash<QString, std::size_t> m_byEscapedIdentifier;
};

} // namespace vantrel
