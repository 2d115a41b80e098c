#include "QtPopup.h"

#include "PopupItem.h"
#include "PopupLog.h"
#include "PopupPlacement.h"
#include "PopupStack.h"
#include "PopupWindow.h"
#include "X11Focus.h"

#include <linux/views/ViewEngine.h>
#include <linux/views/X11Connection.h>

#include <QGuiApplication>
#include <QLocale>
#include <QQuickItem>
#include <QScreen>

#include <utility>

namespace vantrel {

VANTREL_LOG(popupLog, "Popup")

QtPopup::QtPopup(ViewContent content, PopupListener listener, ViewEngine &engine, PopupStack &stack)
    : m_content(std::move(content)),
      m_listener(std::move(listener)),
      m_engine(engine),
      m_stack(stack) {}

QtPopup::~QtPopup() {
    if (m_isShown) {
        m_isShown = false;
        m_stack.closeAbove(*this);
        handOnKeyboard();
        m_stack.remove(*this);
    }
    if (!m_window)
        return;
    m_window->setHandler({});
    m_window->hide();
    if (m_window->isDelivering())
        m_window->deleteLater();
    else
        delete m_window;
}

QWindow *QtPopup::window() const {
    return m_window;
}

void QtPopup::swallowNextClick() {
    m_window->swallowNextClick();
}

bool QtPopup::makeWindow() {
    auto window = std::make_unique<PopupWindow>();
    auto item = m_engine.makeItem(m_content, *window, ItemSize::ofContent);
    if (!item) {
        qCCritical(popupLog).noquote()
            << m_content.module + u'.' + m_content.typeName << "cannot be shown";
        return false;
    }
    m_item = item.release();
    m_item->setParent(window->contentItem());
    m_window = window.release();
    m_window->setHandler({[this] { close(); }, [this] { return m_stack.closeAbove(*this); }});
    QObject::connect(m_item, &QQuickItem::implicitWidthChanged, &m_watch, [this] { arrange(); });
    QObject::connect(m_item, &QQuickItem::implicitHeightChanged, &m_watch, [this] { arrange(); });
    return true;
}

void QtPopup::show(const PopupPlace &place) {
    if (!m_window && !makeWindow())
        return;
    // Any listener may destroy the popup.
    const QPointer<QObject> living = &m_watch;
    if (m_isShown)
        m_stack.closeAbove(*this);
    if (!living)
        return;
    m_place = place;
    chooseScreen();
    if (!m_isShown) {
        m_isShown = true;
        m_formerFocus = x11::focusedWindow();
        m_stack.push(*this);
        if (m_listener.didShow)
            PopupListener(m_listener).didShow();
        if (!living || !m_isShown)
            return;
        followDesktop(*m_item, m_content);
    }
    m_window->setScreen(m_screen);
    setCorners(*m_item, x11::isBlended() ? Corners::round : Corners::square);
    arrange();
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
    x11::takeFocus(*m_window);
}

void QtPopup::chooseScreen() {
    QScreen *screen = nullptr;
    if (m_place.anchor)
        screen = QGuiApplication::screenAt(
            m_place.anchor->topLeft() +
            QPoint(m_place.anchor->width() / 2, m_place.anchor->height() / 2));
    m_screen = screen ? screen : QGuiApplication::primaryScreen();
}

void QtPopup::arrange() {
    if (!m_isShown || !m_screen)
        return;
    const PopupArea area{m_screen->geometry(), m_screen->availableGeometry(), std::nullopt};
    // The application's own direction follows a translation, of which there may be none.
    const QRect frame = placePopup(m_place, wantedSize(*m_item), area, QLocale().textDirection());
    m_window->setGeometry(frame);
    m_item->setSize(frame.size());
}

void QtPopup::close() {
    if (!m_isShown)
        return;
    // Any listener may close or destroy the popup.
    const QPointer<QObject> living = &m_watch;
    m_stack.closeAbove(*this);
    if (!living || !m_isShown)
        return;
    m_isShown = false;
    handOnKeyboard();
    m_stack.remove(*this);
    m_window->hide();
    if (const auto didClose = m_listener.didClose)
        didClose();
}

/// For a popup that nothing lies on, or it would not have the keyboard that it is to hand on.
/// To the popup beneath, else to the window that had it, unless somebody else has got it already.
/// Ahead of the window's end: an X server gives the keyboard of a window that has gone to whom it
/// likes.
void QtPopup::handOnKeyboard() {
    const QtPopup *beneath = m_stack.beneath(*this);
    if (x11::connection())
        x11::passFocus(*m_window, beneath ? static_cast<xcb_window_t>(beneath->m_window->winId())
                                          : m_formerFocus);
    else if (beneath && m_window->isActive())
        beneath->m_window->requestActivate();
}

} // namespace vantrel
