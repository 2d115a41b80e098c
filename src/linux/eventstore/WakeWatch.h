#pragma once

#include <platform/MainQueue.h>

#include <QString>

#include <functional>
#include <memory>

namespace vantrel {

/// Hears from the login manager (org.freedesktop.login1) that the machine has woken. Without a
/// system bus, or a login manager on it, it stays quiet: the kernel's own notice, which
/// `ClockWatch` hears, is then the only one. A bus that was there and went away is tried again with
/// growing pauses. Waits for no answer of the bus. Main thread only;
/// needs an event loop of GLib's, which is what Qt uses unless it is told otherwise.
class WakeWatch {
public:
    /// `queue` outlives the watch.
    WakeWatch(MainQueue &queue, std::function<void()> report,
              const QString &busAddress = systemBus());
    ~WakeWatch();

    /// The address in DBUS_SYSTEM_BUS_ADDRESS, or the usual one.
    [[nodiscard]] static QString systemBus();

    /// Whether the bus has confirmed that what the login manager says will be heard.
    [[nodiscard]] bool isListening() const;

private:
    struct Line;
    std::shared_ptr<Line> m_line; ///< Answers that come later find it gone.
};

} // namespace vantrel
