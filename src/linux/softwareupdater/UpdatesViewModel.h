#pragma once

#include "UpdateAdvice.h"

#include <QObject>
#include <QString>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace vantrel {

/// What the window about updates tells. Main thread only.
class UpdatesViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(QVariant themePalette READ themePalette NOTIFY changed FINAL)
    Q_PROPERTY(QString version READ version CONSTANT FINAL)
    Q_PROPERTY(QString origin READ origin NOTIFY changed FINAL)
    Q_PROPERTY(QString way READ way NOTIFY changed FINAL)
    Q_PROPERTY(QString command READ command NOTIFY changed FINAL)

public:
    explicit UpdatesViewModel(QString version) : m_version(std::move(version)) {}

    /// Replaces all that is shown. `themePalette` is one of Vantrel.Theme.
    void show(UpdateAdvice advice, QVariant themePalette);

    [[nodiscard]] QVariant themePalette() const { return m_themePalette; }
    [[nodiscard]] QString version() const { return m_version; }
    [[nodiscard]] QString origin() const { return m_advice.origin; }
    [[nodiscard]] QString way() const { return m_advice.way; }
    [[nodiscard]] QString command() const { return m_advice.command; }

Q_SIGNALS:
    void changed();

private:
    const QString m_version;
    UpdateAdvice m_advice;
    QVariant m_themePalette;
};

} // namespace vantrel
