#pragma once

#include "EventComponent.h"
#include "EventLength.h"
#include "Problems.h"
#include "UserClock.h"

#include <map>
#include <utility>
#include <vector>

namespace vantrel {

/// Occurrences that do not stand where the rules put them: by instant, and by day where a day was
/// all that was written.
class LeftOut {
public:
    void addInstant(UtcSeconds instant) { m_instants.push_back(instant); }
    void addDay(std::int64_t day) { m_days.push_back(day); }

    /// Between the last addition and the first question.
    void sort();

    [[nodiscard]] bool holds(UtcSeconds instant, std::int64_t day) const;

private:
    std::vector<UtcSeconds> m_instants;
    std::vector<std::int64_t> m_days;
};

/// From one occurrence on a series is told of by an override (RANGE=THISANDFUTURE).
struct Continuation {
    UtcSeconds from; ///< Where the rules put that occurrence.
    const EventComponent *component;
    std::int64_t shift; ///< How much later than its place each occurrence starts, by the clock.
    EventLength length;
};

/// The components of one UID, each in its part.
class SeriesParts {
public:
    /// Of several components with the same part the later revision gets it; among equal ones the
    /// one that comes last.
    SeriesParts(const std::vector<const EventComponent *> &components, const UserClock &clock,
                Problems &problems);

    /// Null when there are only overrides. The functions below are then not to be called, other
    /// than `overrides`.
    [[nodiscard]] const EventComponent *master() const { return m_master; }
    [[nodiscard]] const Zone &zone() const { return *m_zone; }
    [[nodiscard]] const EventLength &length() const { return m_length; }
    [[nodiscard]] bool isAllDay() const { return m_master->start.kind == Moment::Kind::date; }

    /// The instant that an added date or the like means. A day alone means the series' own time of
    /// that day, a floating time one in its zone.
    [[nodiscard]] UtcSeconds instantOf(const Moment &moment) const;

    /// Components that stand for one occurrence each.
    [[nodiscard]] const std::vector<const EventComponent *> &overrides() const {
        return m_overrides;
    }

    /// Exceptions, and what the overrides replace.
    [[nodiscard]] LeftOut &leftOut() { return m_leftOut; }

    /// In ascending order.
    [[nodiscard]] const std::vector<Continuation> &continuations() const { return m_continuations; }

private:
    /// What names an occurrence: an instant, or a day when `second` is true.
    using Key = std::pair<std::int64_t, bool>;

    void findMaster(const std::vector<const EventComponent *> &components, Problems &problems);
    void findOverrides(const std::vector<const EventComponent *> &components, Problems &problems);
    void findContinuations(Problems &problems);
    [[nodiscard]] Key keyOf(const Moment &moment) const;
    void leaveOut(const Key &key);

    const UserClock &m_clock;
    const EventComponent *m_master = nullptr;
    const Zone *m_zone = nullptr;
    EventLength m_length;
    std::vector<const EventComponent *> m_overrides;
    LeftOut m_leftOut;
    std::vector<Continuation> m_continuations;
};

} // namespace vantrel
