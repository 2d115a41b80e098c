#pragma once

#include <theme/ThemePalette.h>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// A theme as the first run offers it. A plain value.
class ThemeChoice {
    Q_GADGET
    QML_VALUE_TYPE(themeChoice)
    Q_PROPERTY(QString name MEMBER name CONSTANT FINAL)
    Q_PROPERTY(QString description MEMBER description CONSTANT FINAL)
    Q_PROPERTY(vantrel::ThemePalette colors MEMBER colors CONSTANT FINAL)

public:
    QString name;
    QString description;
    ThemePalette colors;

    bool operator==(const ThemeChoice &) const = default;
};

} // namespace vantrel
