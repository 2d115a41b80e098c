#pragma once

#include <platform/EventStore.h>

#include <set>
#include <vector>

namespace vantrel::fakes {

/// A store that holds just what a test puts in. Occurrences of a series stand in it one by one,
/// with the same identifier.
class FakeEventStore : public EventStore {
public:
    /// `now` serves `eventWithIdentifier`, which looks for the occurrence nearest to it.
    explicit FakeEventStore(std::function<Instant()> now) : m_now(std::move(now)) {}

    std::vector<StoreCalendar> storedCalendars;
    std::vector<StoreEvent> storedEvents; ///< `calendar` set; any order.
    mutable int fetchCount = 0;           ///< Calls of `calendars` and `events`.

    bool isComplete = true; ///< Whether `storedCalendars` are all there are.
    /// Of calendars that may be there although `storedCalendars` lacks them.
    std::set<QString> outOfReach;

    StoreAuthorization authorization = StoreAuthorization::fullAccess;
    std::vector<AccessCompletion> accessRequests; ///< Not answered by the store itself.

    [[nodiscard]] StoreAuthorization authorizationStatus() const override { return authorization; }
    void requestFullAccessToEvents(AccessCompletion completion) override;

    /// Without full access this and all further answers are empty.
    [[nodiscard]] std::vector<StoreCalendar> calendars() const override;
    [[nodiscard]] bool hasAllCalendars() const override;
    [[nodiscard]] bool isCalendarDeleted(const QString &calendarIdentifier) const override;
    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to,
           const std::vector<QString> &calendarIdentifiers) const override;
    [[nodiscard]] std::optional<StoreEvent>
    eventWithIdentifier(const QString &eventIdentifier) const override;

private:
    [[nodiscard]] bool isReadable() const;

    std::function<Instant()> m_now;
};

} // namespace vantrel::fakes
