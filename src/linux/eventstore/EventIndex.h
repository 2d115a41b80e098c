#pragma once

#include "CalendarOccurrences.h"

#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// Answers every question about the calendars from memory. Main thread only.
class EventIndex {
public:
    using Calendars = std::vector<std::shared_ptr<const CalendarOccurrences>>;

    /// Takes the place of all that was held before. The order of the calendars is kept.
    void replace(Calendars calendars);

    [[nodiscard]] std::vector<StoreCalendar> calendars() const;

    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to, const std::vector<QString> &calendarIdentifiers) const;

    [[nodiscard]] std::optional<StoreEvent> eventWithIdentifier(const QString &eventIdentifier,
                                                                Instant now) const;

private:
    Calendars m_calendars;
    QHash<QString, std::size_t> m_byEscapedIdentifier;
};

} // namespace vantrel
