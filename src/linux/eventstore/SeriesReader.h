#pragma once

#include "CalendarOccurrences.h"
#include "ComponentReader.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace vantrel {

/// Makes what a series shows within the window out of its components.
class SeriesReader {
public:
    struct Result {
        std::shared_ptr<const ShownSeries> shown; ///< Null when nothing shows.
        UtcSeconds due = Expansion::never;
    };

    /// The arguments outlive the reader.
    SeriesReader(const SeriesExpander &expander, const QString &calendarIdentifier,
                 const QStringList &addresses)
        : m_expander(expander), m_calendarIdentifier(calendarIdentifier), m_addresses(addresses) {}

    /// The components share one UID.
    [[nodiscard]] Result read(const std::vector<const EventComponent *> &components,
                              StepBudget &budget, Problems &problems) const;

private:
    const SeriesExpander &m_expander;
    const QString &m_calendarIdentifier;
    const QStringList &m_addresses;
};

} // namespace vantrel
