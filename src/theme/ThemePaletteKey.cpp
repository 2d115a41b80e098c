#include "ThemePaletteKey.h"

#include <QQuickItem>
#include <QQuickWindow>

namespace vantrel {

namespace {

/// The items right within `object`; none in what is neither an item nor a window.
QList<QQuickItem *> itemsWithin(QObject *object) {
    if (const auto *window = qobject_cast<QQuickWindow *>(object))
        return {window->contentItem()};
    if (const auto *item = qobject_cast<QQuickItem *>(object))
        return item->childItems();
    return {};
}

} // namespace

ThemePaletteKey::ThemePaletteKey(QObject *attachee) : QObject(attachee) {
    inherit();
}

ThemePaletteKey *ThemePaletteKey::qmlAttachedProperties(QObject *attachee) {
    return new ThemePaletteKey(attachee);
}

ThemePaletteKey *ThemePaletteKey::attachedTo(QObject *object) {
    return qobject_cast<ThemePaletteKey *>(
        qmlAttachedPropertiesObject<ThemePaletteKey>(object, false));
}

void ThemePaletteKey::setPalette(const ThemePalette &palette) {
    m_isSetHere = true;
    take(palette);
}

void ThemePaletteKey::resetPalette() {
    m_isSetHere = false;
    inherit();
}

void ThemePaletteKey::inherit() {
    const ThemePalette inherited = inheritedPalette();
    if (!m_isSetHere)
        take(inherited);
}

ThemePalette ThemePaletteKey::inheritedPalette() {
    for (const auto &watch : std::as_const(m_ancestorWatches))
        disconnect(watch);
    m_ancestorWatches.clear();

    const auto *item = qobject_cast<QQuickItem *>(parent());
    while (item) {
        // An ancestor without a key of its own moves unnoticed unless it is watched from here.
        m_ancestorWatches << connect(item, &QQuickItem::parentChanged, this,
                                     &ThemePaletteKey::inherit);
        QObject *ancestor = item->parentItem();
        if (!ancestor)
            ancestor = item->window();
        const ThemePaletteKey *key = ancestor ? attachedTo(ancestor) : nullptr;
        if (key && key->m_isSetHere)
            return key->m_palette;
        item = item->parentItem();
    }
    return ThemePalette();
}

void ThemePaletteKey::take(const ThemePalette &palette) {
    if (m_palette == palette)
        return;
    m_palette = palette;
    handDown(parent());
    Q_EMIT paletteChanged();
}

void ThemePaletteKey::handDown(QObject *object) {
    const auto items = itemsWithin(object);
    for (QQuickItem *item : items) {
        ThemePaletteKey *key = attachedTo(item);
        if (!key)
            handDown(item);
        else if (!key->m_isSetHere)
            key->take(m_palette);
    }
}

} // namespace vantrel
