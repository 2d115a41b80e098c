#pragma once

#include "SeriesExpander.h"
#include "ShownSeries.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace vantrel {

/// Makes what a series shows within the window out of its components.
class SeriesReader {
public:
    struct Result {
        std::shared_ptr<const ShownSeries> shown; ///< Null when nothing shows.
        UtcSeconds due = Expansion::never;        ///< As in `Expansion`.
    };

    SeriesReader(SeriesExpander expander, QString calendarIdentifier, QStringList addresses);

    /// The components share one UID.
    [[nodiscard]] Result read(const std::vector<const EventComponent *> &components,
                              StepBudget &budget, Problems &problems) const;

private:
    SeriesExpander m_expander;
    QString m_calendarIdentifier;
    QStringList m_addresses;
};

} // namespace vantrel
