#include "Activation.h"

namespace vantrel {

QString activationName(ActivationRequest request) {
    switch (request) {
    case ActivationRequest::showPopover:
        return QStringLiteral("popover");
    case ActivationRequest::togglePause:
        return QStringLiteral("pause");
    case ActivationRequest::showPreferences:
        return QStringLiteral("preferences");
    case ActivationRequest::quit:
        return QStringLiteral("quit");
    }
    Q_UNREACHABLE();
}

std::optional<ActivationRequest> activationRequest(const QString &name) {
    for (const auto request : {ActivationRequest::showPopover, ActivationRequest::togglePause,
                               ActivationRequest::showPreferences, ActivationRequest::quit}) {
        if (activationName(request) == name)
            return request;
    }
    return std::nullopt;
}

} // namespace vantrel
