#include "ApplicationObject.h"

#include "ApplicationAdaptor.h"

#include <QDBusError>

namespace vantrel {

ApplicationObject::ApplicationObject(std::function<void(ActivationRequest)> asked)
    : m_asked(std::move(asked)) {
    new ApplicationAdaptor(this);
}

void ApplicationObject::ActivateAction(const QString &name, const QVariantList &,
                                       const QVariantMap &) {
    if (const auto request = activationRequest(name))
        m_asked(*request);
    else
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such action"));
}

} // namespace vantrel
