#pragma once

#include <platform/EventStore.h>

#include <QString>

#include <functional>

namespace vantrel {

/// The user's permission to read their calendars. Main thread only.
class CalendarAccess {
public:
    enum class Status {
        notDetermined, ///< Nobody has been asked.
        denied,        ///< The user refused, or the store answers what this program does not know.
        restricted,    ///< A policy bars it; the user cannot allow it.
        writeOnly,     ///< Events may be added, not read.
        fullAccess     ///< The one state in which anybody sees an event.
    };

    /// `store` must outlive this object.
    explicit CalendarAccess(EventStore &store) : m_store(store) {}

    [[nodiscard]] EventStore &store() const { return m_store; }

    /// Asks the store each time, and nobody else.
    [[nodiscard]] Status currentStatus() const;

    /// Has the user asked, also one who refused before, unless they granted access of either kind.
    /// `completion` is called once, on the main thread: before this returns when nobody has to be
    /// asked, and also after this object is gone. A request that fails counts as `denied`.
    void requestFullAccess(const std::function<void(Status)> &completion);

private:
    EventStore &m_store;
};

/// "notDetermined", "denied", "restricted", "writeOnly" or "fullAccess".
[[nodiscard]] QString rawValue(CalendarAccess::Status status);

} // namespace vantrel
