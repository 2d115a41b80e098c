#include "QtPopup.h"

#include "PopupPlacement.h"
#include "PopupStack.h"
#include "PopupWindow.h"
#include "X11Focus.h"

#include <linux/views/ViewEngine.h>
#include <linux/views/X11Connection.h>
#include <platform/Log.h>

#include <QGuiApplication>
#include <QLocale>
#include <QQuickItem>
#include <QScreen>

#include <cmath>
#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(popupLog, "Popup")

constexpr char cornerRadius[] = "cornerRadius";
constexpr int radiusOfWindows = 16;

/// Items find their sizes ahead of a frame; here they are wanted before the first one.
void polish(QQuickItem &item) {
    const auto children = item.childItems();
    for (QQuickItem *child : children)
        polish(*child);
    item.ensurePolished();
}

QSize wantedSize(const QQuickItem &item) {
    return {static_cast<int>(std::ceil(item.implicitWidth())),
            static_cast<int>(std::ceil(item.implicitHeight()))};
}

} // namespace

QtPopup::QtPopup(ViewContent content, PopupListener listener, ViewEngine &engine, PopupStack &stack)
    : m_content(std::move(content)),
      m_listener(std::move(listener)),
      m_engine(engine),
      m_stack(stack) {}

QtPopup::~QtPopup() {
    if (m_isShown) {
        m_isShown = false;
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
    m_place = place;
    chooseScreen();
    if (!m_isShown) {
        m_isShown = true;
        m_formerFocus = x11::focusedWindow();
        m_stack.push(*this);
        const QPointer<PopupWindow> window = m_window;
        if (m_listener.didShow)
            PopupListener(m_listener).didShow();
        if (!window || !m_isShown)
            return;
    }
    m_window->setScreen(m_screen);
    if (m_item->metaObject()->indexOfProperty(cornerRadius) >= 0)
        m_item->setProperty(cornerRadius, x11::isBlended() ? radiusOfWindows : 0);
    polish(*m_item);
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
    const PopupArea area{m_screen->geometry(), m_screen->availableGeometry()};
    // The application's own direction follows a translation, of which there may be none.
    const QRect frame = placePopup(m_place, wantedSize(*m_item), area, QLocale().textDirection());
    m_window->setGeometry(frame);
    m_item->setSize(frame.size());
}

void QtPopup::close() {
    if (!m_isShown)
        return;
    m_isShown = false;
    handOnKeyboard();
    m_stack.remove(*this);
    m_window->hide();
    // The listener may destroy the popup.
    if (const auto didClose = m_listener.didClose)
        didClose();
}

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
