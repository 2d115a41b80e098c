#pragma once

#include "PreferencesStore.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// What the page about the program shows. Main thread only.
class AboutTabModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(QString version READ version CONSTANT FINAL)
    Q_PROPERTY(bool showingResetConfirm READ showingResetConfirm WRITE setShowingResetConfirm NOTIFY
                   showingResetConfirmChanged FINAL)

public:
    /// `preferences` must outlive the model.
    explicit AboutTabModel(PreferencesStore &preferences) : m_preferences(preferences) {}

    /// "Version 1.0", as the application object tells it.
    [[nodiscard]] QString version() const;

    /// Whether the user is being asked if they mean it.
    [[nodiscard]] bool showingResetConfirm() const { return m_showingResetConfirm; }
    void setShowingResetConfirm(bool showing);

    /// Resets all settings and ends the question.
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void showingResetConfirmChanged();

private:
    PreferencesStore &m_preferences;
    bool m_showingResetConfirm = false;
};

} // namespace vantrel
