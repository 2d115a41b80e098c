#pragma once

#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <QString>
#include <QTimeZone>

namespace vantrel {

/// The name of a local day in the rescue log: "yyyy-MM-dd" by the Gregorian calendar, in ASCII
/// digits whatever the user's locale.
struct RescueDateKey {
    RescueDateKey() = delete;

    class Formatter {
    public:
        explicit Formatter(const QTimeZone &timeZone);

        [[nodiscard]] QString string(Instant instant) const;

    private:
        QTimeZone m_timeZone;
    };

    /// Takes nothing but the time zone from `calendar`.
    [[nodiscard]] static Formatter formatter(const LocalCalendar &calendar);
};

} // namespace vantrel
