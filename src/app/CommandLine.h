#pragma once

#include <platform/Activation.h>
#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace vantrel {

/// Runs the agent, or asks the one that runs.
struct RunAgent {
    /// Keeps settings, calendars and the rescue log in this folder instead of the user's own.
    std::optional<QString> profile;
    /// What it is to do; empty: just to run, or to show the popover when it does already.
    std::optional<ActivationRequest> request;
};

/// Asks the agent that runs, and ends; starts none.
struct AskAgent {
    std::optional<QString> profile;
    ActivationRequest request;
};

/// Prints how the agent is that runs, and ends.
struct PrintStatus {
    std::optional<QString> profile;
    bool asJson = false;
};

/// Prints the upcoming events and ends.
struct PrintAgenda {
    static constexpr Seconds defaultHorizon{14 * 86400.0};

    std::optional<QString> profile;
    bool asJson = false;
    /// Calendar folders, folders of calendar folders, or `.ics` files; empty: the user's own.
    QStringList calendars;
    std::optional<Instant> now; ///< Empty: the clock's.
    Seconds horizon = defaultHorizon;
};

/// Prints the calendars and which of them are watched, and ends.
struct PrintCalendars {
    std::optional<QString> profile;
    bool asJson = false;
};

/// Prints a text on standard output and ends with exit code 0.
struct PrintText {
    QString text;
};

/// The arguments make no sense; `message` says why, in one line.
struct UsageError {
    QString message;
};

using Command = std::variant<RunAgent, AskAgent, PrintStatus, PrintAgenda, PrintCalendars,
                             PrintText, UsageError>;

/// Reads the program's arguments, its own name first. Dates without an offset are read in the zone
/// of `calendar`.
Command parseCommandLine(const QStringList &arguments, const LocalCalendar &calendar);

} // namespace vantrel
