#include "DesktopStatusItem.h"

#include "ClickPlace.h"
#include "HostTexts.h"

#include <QGuiApplication>

namespace vantrel {

DesktopStatusItem::DesktopStatusItem(MainQueue &queue, const SymbolArt &art,
                                     StatusItemListener listener)
    : m_queue(queue),
      m_listener(std::move(listener)),
      m_art(art),
      m_trayToolTip(queue),
      m_notifier(queue, art, notifierListener()) {}

StatusNotifier::Listener DesktopStatusItem::notifierListener() {
    return {{[this](QPoint pixel) { activate(PointerButton::left, placeOfClick(pixel)); },
             [this] { activate(PointerButton::left, placeOfPointer()); },
             [this](QPoint pixel) { activate(PointerButton::right, placeOfClick(pixel)); }},
            {m_listener.menu, [this](std::function<void()> action) { later(std::move(action)); }},
            [this](bool isShown) { follow(isShown); }};
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

StatusItemPlace DesktopStatusItem::place() const {
    if (m_isShownByHost)
        return StatusItemPlace::host;
    return m_trayIcon && m_trayIcon->isDocked() ? StatusItemPlace::tray : StatusItemPlace::nowhere;
}

void DesktopStatusItem::show(ItemLook look) {
    if (look == m_look)
        return;
    m_look = std::move(look);
    m_notifier.show(m_look);
    m_trayToolTip.setText(plainToolTip(m_look));
    if (m_trayIcon)
        m_trayIcon->show(m_look);
}

void DesktopStatusItem::follow(bool isShownByHost) {
    m_isShownByHost = isShownByHost;
    const bool hasTray = QGuiApplication::platformName() == u"xcb";
    if (isShownByHost || !hasTray) {
        m_trayIcon.reset();
        m_trayToolTip.hide();
    } else if (!m_trayIcon) {
        dock();
    }
}

void DesktopStatusItem::dock() {
    TrayIcon::Listener listener;
    listener.clicked = [this](const TrayIcon::Click &tray) {
        click({tray.button, tray.hasControl, placeOfFrame(tray.pixels)});
    };
    listener.pointed = [this](const std::optional<QRect> &pixels) {
        const std::optional<QRect> place = pixels ? placeOfFrame(*pixels) : std::nullopt;
        if (place)
            m_trayToolTip.showAt(*place);
        else
            m_trayToolTip.hide();
    };
    m_trayIcon = std::make_unique<TrayIcon>(m_art, std::move(listener));
    m_trayIcon->show(m_look);
}

void DesktopStatusItem::activate(PointerButton button, const std::optional<QRect> &place) {
    // The bus does not carry the keys that are held down; where the display tells, they count.
    const bool hasControl = QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
    click({button, hasControl, place});
}

void DesktopStatusItem::click(const StatusItemClick &click) {
    later([this, click] {
        // A copy: the listener may destroy the item, and itself with it.
        if (const auto clicked = m_listener.clicked)
            clicked(click);
    });
}

void DesktopStatusItem::later(std::function<void()> work) {
    m_queue.async([work = std::move(work), life = std::weak_ptr<char>(m_life)] {
        if (!life.expired())
            work();
    });
}

} // namespace vantrel
