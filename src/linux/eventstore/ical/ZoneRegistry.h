#pragma once

#include "ContentLines.h"
#include "Zone.h"

#include <QByteArray>
#include <QHash>

#include <memory>
#include <vector>

namespace vantrel {

/// Finds the zone that a TZID means, and keeps each zone once, however many texts bring it along.
/// Used by one thread at a time.
class ZoneRegistry {
public:
    /// Whether the system has a time-zone database at all.
    [[nodiscard]] static bool hasSystemZones();

    /// The system's zone of that name: an IANA name, one behind a vendor's prefix
    /// ("/mozilla.org/20070129_1/Europe/Berlin"), or a Windows name; or the zone of a fixed offset
    /// that is its own name ("GMT+08:00"). Null when there is none.
    std::shared_ptr<const Zone> systemZone(QByteArrayView name);

    /// The zone as the lines of a VTIMEZONE block describe it. Null when they hold no rule that
    /// can be used.
    std::shared_ptr<const Zone> describedZone(const std::vector<ContentLine> &lines);

    /// Forgets the zones that texts brought along.
    void forgetDescribedZones() { m_described.clear(); }

private:
    QHash<QByteArray, std::shared_ptr<const Zone>> m_system;
    QHash<QByteArray, std::shared_ptr<const Zone>> m_described;
};

} // namespace vantrel
