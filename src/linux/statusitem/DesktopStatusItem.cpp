#include "DesktopStatusItem.h"

#include "ClickPlace.h"

#include <QGuiApplication>

namespace vantrel {

DesktopStatusItem::DesktopStatusItem(MainQueue &queue, const SymbolArt &art,
                                     StatusItemListener listener)
    : m_queue(queue), m_listener(std::move(listener)), m_notifier(art, notifierListener()) {}

StatusNotifier::Listener DesktopStatusItem::notifierListener() {
    return {{[this](QPoint pixel) { click(PointerButton::left, pixel); },
             [this](QPoint pixel) { click(PointerButton::right, pixel); }},
            {m_listener.menu, [this](std::function<void()> action) { later(std::move(action)); }},
            [](bool) {}};
}

void DesktopStatusItem::setImage(const QString &symbol, const QString &accessibleDescription) {
    ItemLook look = m_look;
    look.symbol = symbol;
    look.accessibleDescription = accessibleDescription;
    show(std::move(look));
}

void DesktopStatusItem::setTitle(const std::optional<StatusTitle> &title) {
    ItemLook look = m_look;
    look.title = title;
    show(std::move(look));
}

void DesktopStatusItem::setToolTip(const QString &text) {
    ItemLook look = m_look;
    look.toolTip = text;
    show(std::move(look));
}

void DesktopStatusItem::show(ItemLook look) {
    if (look == m_look)
        return;
    m_look = std::move(look);
    m_notifier.show(m_look);
}

void DesktopStatusItem::click(PointerButton button, QPoint pixel) {
    // The bus does not carry the keys that are held down; where the display tells, they count.
    const bool hasControl = QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
    later([this, click = StatusItemClick{button, hasControl, placeOfClick(pixel)}] {
        if (m_listener.clicked)
            m_listener.clicked(click);
    });
}

void DesktopStatusItem::later(std::function<void()> work) {
    m_queue.async([work = std::move(work), life = std::weak_ptr<char>(m_life)] {
        if (!life.expired())
            work();
    });
}

} // namespace vantrel
