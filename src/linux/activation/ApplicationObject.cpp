#include "ApplicationObject.h"

#include "AgentAdaptor.h"
#include "ApplicationAdaptor.h"

#include <QDBusError>

namespace vantrel {

ApplicationObject::ApplicationObject(std::function<void(ActivationRequest)> asked,
                                     std::function<QByteArray()> report)
    : m_asked(std::move(asked)), m_report(std::move(report)) {
    new ApplicationAdaptor(this);
    new AgentAdaptor(this);
}

void ApplicationObject::ActivateAction(const QString &name, const QVariantList &,
                                       const QVariantMap &) {
    if (const auto request = activationRequest(name))
        m_asked(*request);
    else
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such action"));
}

} // namespace vantrel
