#pragma once

#include "FlagSetting.h"
#include "NumberSetting.h"
#include "PreferencesStore.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// What the page about the status item shows. Main thread only.
class MenuBarTabModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(vantrel::FlagSetting *showNextMeeting READ showNextMeeting CONSTANT FINAL)
    Q_PROPERTY(vantrel::NumberSetting *upcomingHorizon READ upcomingHorizon CONSTANT FINAL)

public:
    /// `preferences` must outlive the model.
    explicit MenuBarTabModel(PreferencesStore &preferences);

    [[nodiscard]] FlagSetting *showNextMeeting() { return &m_showNextMeeting; }
    [[nodiscard]] NumberSetting *upcomingHorizon() { return &m_upcomingHorizon; } ///< Minutes.

private:
    FlagSetting m_showNextMeeting;
    NumberSetting m_upcomingHorizon;
};

} // namespace vantrel
