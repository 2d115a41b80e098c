#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace vantrel {

/// What the running program can be asked to do from outside.
enum class ActivationRequest {
    showPopover,
    togglePause,
    pause,
    resume,
    showPreferences,
    showRecap,
    preview, ///< Show what a takeover looks like.
    quit,
};

/// The name of a request on the bus, in the desktop entry and on the command line: "popover",
/// "toggle-pause", "pause", "resume", "preferences", "recap", "preview", "quit".
[[nodiscard]] QString activationName(ActivationRequest request);

/// Empty for a name that is no request's.
[[nodiscard]] std::optional<ActivationRequest> activationRequest(const QString &name);

/// Requests from outside: the program was started again, or an action of its desktop entry was
/// chosen. Main thread only.
class Activation {
public:
    virtual ~Activation() = default;

    /// Requests go to `handler` from now on, from the event loop; the ones that came before as
    /// well.
    virtual void follow(std::function<void(ActivationRequest)> handler) = 0;

    /// Who asks how the program is gets what `report` answers: a JSON object in UTF-8.
    virtual void answerStatus(std::function<QByteArray()> report) = 0;
};

} // namespace vantrel
