#pragma once

#include <QSocketNotifier>

#include <functional>
#include <optional>

namespace vantrel {

/// Hears when the program is told to end: by the session or a service manager (SIGTERM), from the
/// terminal (SIGINT) or at its end (SIGHUP). A second signal of a kind ends the program at once, as
/// if nobody listened. One for the process.
///
/// The signals are caught and not blocked: a blocked one stays so in the programs that this one
/// starts.
class TerminationSignals {
public:
    /// `told` is called from the event loop, also for a signal that came before the loop ran.
    explicit TerminationSignals(std::function<void()> told);
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;
    ~TerminationSignals();

private:
    void take();

    std::function<void()> m_told;
    int m_reading = -1;
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace vantrel
