#pragma once

#include "ThemePalette.h"

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// A theme as windows offer it to be picked. A plain value.
class ThemeOffer {
    Q_GADGET
    QML_VALUE_TYPE(themeOffer)
    Q_PROPERTY(QString name MEMBER name CONSTANT FINAL)
    Q_PROPERTY(QString description MEMBER description CONSTANT FINAL)
    Q_PROPERTY(vantrel::ThemePalette themePalette MEMBER themePalette CONSTANT FINAL)

public:
    QString name;
    QString description;
    ThemePalette themePalette;

    bool operator==(const ThemeOffer &) const = default;
};

/// All of them, in their order, for a view to list.
[[nodiscard]] QVariantList themeOffers();

} // namespace vantrel
