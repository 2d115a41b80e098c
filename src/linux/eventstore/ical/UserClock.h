#pragma once

#include "EventComponent.h"
#include "Zone.h"

namespace vantrel {

/// Turns moments into instants, for a user who lives in one zone: whole days and floating times
/// are in it, and so are times in a zone that nobody knows.
class UserClock {
public:
    /// The zone outlives the clock.
    explicit UserClock(const Zone &userZone) : m_userZone(userZone) {}

    [[nodiscard]] const Zone &zoneOf(const Moment &moment) const {
        static const Zone utc(0, {});
        if (moment.kind == Moment::Kind::utc)
            return utc;
        return moment.zone && moment.zone->zone ? *moment.zone->zone : m_userZone;
    }

    [[nodiscard]] UtcSeconds instantOf(const Moment &moment) const {
        return moment.kind == Moment::Kind::utc ? moment.civil : zoneOf(moment).toUtc(moment.civil);
    }

private:
    const Zone &m_userZone;
};

} // namespace vantrel
