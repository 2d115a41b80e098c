#pragma once

#include "NumberSetting.h"
#include "PreferencesStore.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// What the page about takeovers shows. Main thread only.
class TakeoverTabModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(vantrel::NumberSetting *leadTime READ leadTime CONSTANT FINAL)
    Q_PROPERTY(vantrel::NumberSetting *snoozeDuration READ snoozeDuration CONSTANT FINAL)
    Q_PROPERTY(vantrel::NumberSetting *autoClose READ autoClose CONSTANT FINAL)

public:
    /// `preferences` must outlive the model.
    explicit TakeoverTabModel(PreferencesStore &preferences);

    [[nodiscard]] NumberSetting *leadTime() { return &m_leadTime; }             ///< Seconds.
    [[nodiscard]] NumberSetting *snoozeDuration() { return &m_snoozeDuration; } ///< Minutes.
    [[nodiscard]] NumberSetting *autoClose() { return &m_autoClose; } ///< Seconds; 0 for never.

private:
    NumberSetting m_leadTime;
    NumberSetting m_snoozeDuration;
    NumberSetting m_autoClose;
};

} // namespace vantrel
