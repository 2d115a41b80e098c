#pragma once

#include "SettingPublisher.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantrel {

/// A setting that is on or off, as a switch shows it: follows the store, whoever changes the
/// setting, and writes to it at once. Main thread only.
class FlagSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(bool isOn READ isOn NOTIFY changed FINAL)

public:
    /// `assign` must be good as long as the object.
    FlagSetting(const SettingPublisher<bool> &setting, std::function<void(bool)> assign);

    [[nodiscard]] bool isOn() const { return m_isOn; }

    Q_INVOKABLE void assign(bool isOn) const { m_assign(isOn); }

Q_SIGNALS:
    void changed();

private:
    const std::function<void(bool)> m_assign;
    bool m_isOn = false;
    Subscription m_subscription;
};

} // namespace vantrel
