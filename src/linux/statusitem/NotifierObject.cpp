#include "NotifierObject.h"

#include "HostTexts.h"
#include "ItemPicture.h"
#include "NotifierAdaptor.h"

#include <QDBusMetaType>

#include <optional>

namespace vantrel {

namespace {

/// Hosts take the next larger one and scale it; these are the heights that panels have.
constexpr int iconSides[] = {16, 22, 24, 32, 48, 64};

std::optional<Color> dotOf(const ItemLook &look) {
    return look.title ? std::optional(look.title->dot) : std::nullopt;
}

} // namespace

NotifierObject::NotifierObject(SymbolArt art, Listener listener)
    : m_art(art), m_listener(std::move(listener)), m_icons(std::move(art)) {
    qDBusRegisterMetaType<IconPixmap>();
    qDBusRegisterMetaType<IconPixmaps>();
    qDBusRegisterMetaType<HostToolTip>();
    new NotifierAdaptor(this);
}

void NotifierObject::show(const ItemLook &look) {
    const ItemLook before = std::exchange(m_look, look);
    if (before.symbol != look.symbol || dotOf(before) != dotOf(look) ||
        before.accessibleDescription != look.accessibleDescription) {
        const QString nameBefore =
            std::exchange(m_iconName, m_icons.iconName(look.symbol, dotOf(look)));
        m_iconPixmaps.clear();
        for (const int side : iconSides)
            m_iconPixmaps.append(IconPixmap::of(itemPicture(look, side, unknownPanelTone, m_art)));
        if (m_iconName != nameBefore)
            Q_EMIT NewIconThemePath(iconThemePath());
        Q_EMIT NewIcon();
    }
    if (nameText(before) != title())
        Q_EMIT NewTitle();
    if (hostToolTip(before) != toolTip())
        Q_EMIT NewToolTip();
    if (labelText(before) != label() || labelGuide(before) != guide())
        Q_EMIT XAyatanaNewLabel(label(), guide());
}

QString NotifierObject::title() const {
    return nameText(m_look);
}

HostToolTip NotifierObject::toolTip() const {
    return hostToolTip(m_look);
}

QString NotifierObject::label() const {
    return labelText(m_look);
}

QString NotifierObject::guide() const {
    return labelGuide(m_look);
}

} // namespace vantrel
