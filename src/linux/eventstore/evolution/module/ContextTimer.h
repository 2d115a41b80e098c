#pragma once

#include <platform/Time.h>

#include <gio/gio.h>

#include <functional>

namespace vantrel {

/// Delayed work on the service's own thread. `MainQueue` belongs to the main thread alone, and what
/// waits here waits for a service, never for a meeting: nothing that a user sees is timed by it.
/// Counts the time that the machine is awake. Used, and destroyed, on that thread.
class ContextTimer {
public:
    ContextTimer() = default;
    ContextTimer(const ContextTimer &) = delete;
    ContextTimer &operator=(const ContextTimer &) = delete;
    ~ContextTimer() { stop(); }

    /// Runs `work` once; takes the place of what was waiting.
    void startFor(Seconds delay, std::function<void()> work);
    void stop();

    [[nodiscard]] bool isRunning() const { return m_source != nullptr; }

    /// Counts up, from any origin.
    [[nodiscard]] static Seconds uptime();

private:
    static gboolean fire(gpointer data);

    GSource *m_source = nullptr;
    std::function<void()> m_work;
};

} // namespace vantrel
