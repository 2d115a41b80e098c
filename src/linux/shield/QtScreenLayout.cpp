#include "QtScreenLayout.h"

#include "ScreenId.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace vantrel {

namespace {

/// While no monitor is connected Qt keeps a placeholder without a size.
bool isMonitor(const QScreen *screen) {
    return screen && !screen->geometry().isEmpty();
}

Screen describe(const QScreen &screen) {
    return {screenId(screen), screen.geometry()};
}

} // namespace

QtScreenLayout::QtScreenLayout(MainQueue &queue) : m_queue(queue) {
    for (QScreen *screen : QGuiApplication::screens())
        watch(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &m_context, [this](QScreen *screen) {
        watch(screen);
        announceSoon();
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &m_context,
                     [this] { announceSoon(); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &m_context,
                     [this] { announceSoon(); });
}

std::vector<Screen> QtScreenLayout::screens() const {
    std::vector<Screen> found;
    for (const QScreen *screen : QGuiApplication::screens()) {
        if (isMonitor(screen))
            found.push_back(describe(*screen));
    }
    return found;
}

std::optional<Screen> QtScreenLayout::mainScreen() const {
    const QScreen *primary = QGuiApplication::primaryScreen();
    return isMonitor(primary) ? std::optional(describe(*primary)) : std::nullopt;
}

std::optional<QPoint> QtScreenLayout::mouseLocation() const {
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return std::nullopt;
    return QCursor::pos();
}

void QtScreenLayout::watch(QScreen *screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &m_context, [this] { announceSoon(); });
}

/// One change of the desktop's arrangement comes as several signals, some of them ahead of the
/// list that they are about.
void QtScreenLayout::announceSoon() {
    if (m_isAnnouncing)
        return;
    m_isAnnouncing = true;
    m_announcement = m_queue.after(Seconds::zero(), [this] {
        m_isAnnouncing = false;
        changed.announce();
    });
}

} // namespace vantrel
