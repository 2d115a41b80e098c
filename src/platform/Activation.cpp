#include "Activation.h"

namespace vantrel {

QString activationName(ActivationRequest request) {
    switch (request) {
    case ActivationRequest::showPopover:
        return QStringLiteral("popover");
    case ActivationRequest::togglePause:
        return QStringLiteral("toggle-pause");
    case ActivationRequest::pause:
        return QStringLiteral("pause");
    case ActivationRequest::resume:
        return QStringLiteral("resume");
    case ActivationRequest::showPreferences:
        return QStringLiteral("preferences");
    case ActivationRequest::showRecap:
        return QStringLiteral("recap");
    case ActivationRequest::preview:
        return QStringLiteral("preview");
    case ActivationRequest::quit:
        return QStringLiteral("quit");
    }
    Q_UNREACHABLE();
}

std::optional<ActivationRequest> activationRequest(const QString &name) {
    using enum ActivationRequest;
    for (const auto request :
         {showPopover, togglePause, pause, resume, showPreferences, showRecap, preview, quit}) {
        if (activationName(request) == name)
            return request;
    }
    return std::nullopt;
}

} // namespace vantrel
