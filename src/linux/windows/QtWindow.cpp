#include "QtWindow.h"

#include <linux/views/ViewEngine.h>
#include <platform/Log.h>

#include <QCursor>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(windowLog, "Window")

} // namespace

QtWindow::QtWindow(ViewContent content, WindowDescription description, ViewEngine &engine)
    : m_content(std::move(content)), m_description(std::move(description)), m_engine(engine) {}

QtWindow::~QtWindow() = default;

void QtWindow::show() {
    if (!m_window && !makeWindow())
        return;
    followDesktop(*m_item, m_content);
    if (m_window->windowStates() & Qt::WindowMinimized)
        m_window->showNormal();
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
}

void QtWindow::hide() {
    if (m_window)
        m_window->hide();
}

bool QtWindow::makeWindow() {
    auto window = std::make_unique<QQuickWindow>();
    m_item = m_engine.makeItem(m_content, *window, ItemSize::ofWindow);
    if (!m_item) {
        qCCritical(windowLog).noquote()
            << m_content.module + u'.' + m_content.typeName << "cannot be shown";
        return false;
    }
    m_window = std::move(window);
    m_window->setTitle(m_description.title);
    m_window->setFlag(Qt::WindowStaysOnTopHint, m_description.level == WindowLevel::floating);
    place();
    return true;
}

/// In the middle of the screen with the pointer.
void QtWindow::place() {
    QScreen *screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    QRect geometry(QPoint(), m_description.size.boundedTo(available.size()));
    geometry.moveCenter(available.center());
    m_window->setScreen(screen);
    m_window->setMinimumSize(m_description.leastSize.boundedTo(available.size()));
    if (m_description.sizing == WindowSizing::fixed) {
        m_window->setMinimumSize(geometry.size());
        m_window->setMaximumSize(geometry.size());
    }
    m_window->setGeometry(geometry);
}

} // namespace vantrel
