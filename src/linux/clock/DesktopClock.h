#pragma once

#include <platform/ClockFormat.h>

#include <memory>

struct _GSettings;

namespace vantrel {

/// The clock that the user chose for the whole desktop. GNOME and those that are built on it have
/// such a setting; on others it is a matter of the locale.
class DesktopClock {
public:
    DesktopClock();

    /// As it is set at this moment.
    [[nodiscard]] ClockFormat format() const;

private:
    struct Unref {
        void operator()(_GSettings *settings) const;
    };

    std::unique_ptr<_GSettings, Unref> m_settings; ///< Null where there is no such setting.
};

} // namespace vantrel
