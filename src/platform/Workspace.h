#pragma once

#include "Url.h"

#include <QString>

#include <optional>

namespace vantrel {

/// Names an application that can open URLs: a desktop entry's id, `browser.desktop` say.
struct ApplicationId {
    QString value;

    bool operator==(const ApplicationId &) const = default;
};

/// The desktop's way of opening things. No call waits for the application that it starts.
/// Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Hands the URL, as it stands, to the handler registered for its scheme. Failure is logged.
    virtual void open(const Url &url) = 0;

    /// The application that `open` would hand the URL to; empty when there is none.
    [[nodiscard]] virtual std::optional<ApplicationId> applicationToOpen(const Url &url) const = 0;

    /// Opens the URL with just that application. Failure is logged.
    virtual void open(const Url &url, const ApplicationId &application) = 0;
};

} // namespace vantrel
