#pragma once

#include <platform/Activation.h>

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

namespace vantrel {

/// The program as the bus has it, in the shapes of org.freedesktop.Application.xml and
/// org.vantrel.Vantrel.xml.
class ApplicationObject : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    /// `report` answers with JSON in UTF-8.
    ApplicationObject(std::function<void(ActivationRequest)> asked,
                      std::function<QByteArray()> report);

    void Activate(const QVariantMap &) { m_asked(ActivationRequest::showPopover); }
    /// The program opens no files.
    void Open(const QStringList &, const QVariantMap &) {}
    void ActivateAction(const QString &name, const QVariantList &, const QVariantMap &);
    [[nodiscard]] QString Status() const { return QString::fromUtf8(m_report()); }

private:
    std::function<void(ActivationRequest)> m_asked;
    std::function<QByteArray()> m_report;
};

} // namespace vantrel
