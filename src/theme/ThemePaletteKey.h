#pragma once

#include "ThemePalette.h"

#include <QList>
#include <QMetaObject>
#include <QObject>
#include <QtQml/qqml.h>

namespace vantrel {

/// The key under which a palette goes down the tree of items, as an attached property.
///
/// `ThemePaletteKey.palette: ...` on an item or a window gives that palette to it and to all items
/// within, up to those that set another. Everybody reads `ThemePaletteKey.palette`: it is the
/// palette of the nearest ancestor that set one, else of the window, else hearth's. It follows when
/// one of them sets another palette, sets `undefined` (takes its own back) or moves in the tree.
/// Main thread only.
class ThemePaletteKey : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The palette is read and set as ThemePaletteKey.palette.")
    QML_ATTACHED(vantrel::ThemePaletteKey)
    Q_PROPERTY(vantrel::ThemePalette palette READ palette WRITE setPalette RESET resetPalette NOTIFY
                   paletteChanged FINAL)

public:
    static ThemePaletteKey *qmlAttachedProperties(QObject *attachee);

    [[nodiscard]] ThemePalette palette() const { return m_palette; }
    void setPalette(const ThemePalette &palette);
    void resetPalette();

Q_SIGNALS:
    void paletteChanged();

private:
    explicit ThemePaletteKey(QObject *attachee);

    /// The key attached to `object`; null when nobody asked for one.
    [[nodiscard]] static ThemePaletteKey *attachedTo(QObject *object);

    /// Inherits afresh and watches the ancestors that the answer depends on.
    void inherit();
    [[nodiscard]] ThemePalette inheritedPalette();
    void take(const ThemePalette &palette);
    void handDown(QObject *object);

    bool m_isSetHere = false;
    ThemePalette m_palette;
    QList<QMetaObject::Connection> m_ancestorWatches;
};

} // namespace vantrel
