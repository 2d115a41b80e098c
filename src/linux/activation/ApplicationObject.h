#pragma once

#include <platform/Activation.h>

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

namespace vantrel {

/// The program as the bus has it, in the shape of org.freedesktop.Application.xml.
class ApplicationObject : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    explicit ApplicationObject(std::function<void(ActivationRequest)> asked);

    void Activate(const QVariantMap &) { m_asked(ActivationRequest::showPopover); }
    /// The program opens no files.
    void Open(const QStringList &, const QVariantMap &) {}
    void ActivateAction(const QString &name, const QVariantList &, const QVariantMap &);

private:
    std::function<void(ActivationRequest)> m_asked;
};

} // namespace vantrel
