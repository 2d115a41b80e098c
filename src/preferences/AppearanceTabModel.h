#pragma once

#include "PreferencesStore.h"

#include <theme/Theme.h>

#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantrel {

/// What the page about the themes shows. Main thread only.
class AppearanceTabModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(QVariantList themes READ themes CONSTANT FINAL)
    Q_PROPERTY(int selected READ selected NOTIFY selectedChanged FINAL)

public:
    /// `preferences` must outlive the model. `onShowDemoAlert` shows a takeover.
    AppearanceTabModel(PreferencesStore &preferences, std::function<void()> onShowDemoAlert);

    /// Of `ThemeOffer`, in the order in which they are offered.
    [[nodiscard]] QVariantList themes() const;

    /// A place in `themes`.
    [[nodiscard]] int selected() const { return m_selected; }

    Q_INVOKABLE void select(int index) const;
    Q_INVOKABLE void showDemoAlert() const { m_onShowDemoAlert(); }

Q_SIGNALS:
    void selectedChanged();

private:
    PreferencesStore &m_preferences;
    const std::function<void()> m_onShowDemoAlert;
    int m_selected = 0;
    Subscription m_subscription;
};

} // namespace vantrel
