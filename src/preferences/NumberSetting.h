#pragma once

#include "SettingPublisher.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <functional>

namespace vantrel {

/// A setting that is a whole number, as a control shows it: follows the store, whoever changes the
/// setting, and writes to it at once. Main thread only.
class NumberSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(double value READ value NOTIFY changed FINAL)
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)

public:
    /// Both functions must be good as long as the object. The one for the text gets the setting.
    NumberSetting(const SettingPublisher<std::int64_t> &setting,
                  std::function<void(std::int64_t)> assign,
                  std::function<QString(std::int64_t)> text);

    [[nodiscard]] std::int64_t number() const { return m_number; }

    [[nodiscard]] double value() const { return static_cast<double>(m_number); }

    /// The value in words.
    [[nodiscard]] QString text() const { return m_text(m_number); }

    /// Assigns the whole number that is next to `value`; one beyond 64 bits stops the program.
    Q_INVOKABLE void assign(double value) const;

    /// Has the text read anew.
    void refresh() { Q_EMIT changed(); }

Q_SIGNALS:
    void changed();

private:
    const std::function<void(std::int64_t)> m_assign;
    const std::function<QString(std::int64_t)> m_text;
    std::int64_t m_number = 0;
    Subscription m_subscription;
};

} // namespace vantrel
