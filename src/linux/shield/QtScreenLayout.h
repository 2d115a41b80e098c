#pragma once

#include <platform/MainQueue.h>
#include <platform/ScreenLayout.h>

#include <QObject>

class QScreen;

namespace vantrel {

/// The monitors as Qt's platform sees them. Construct it after the application object.
class QtScreenLayout : public ScreenLayout {
public:
    /// `queue` must outlive the layout.
    explicit QtScreenLayout(MainQueue &queue);

    [[nodiscard]] std::vector<Screen> screens() const override;
    [[nodiscard]] std::optional<Screen> mainScreen() const override;

    /// Empty on Wayland, where a program knows the pointer only while it is over its own windows.
    [[nodiscard]] std::optional<QPoint> mouseLocation() const override;

private:
    void watch(QScreen *screen);
    void announceSoon();

    MainQueue &m_queue;
    QObject m_context; ///< Ends the connections with the layout.
    ScheduledWork m_announcement;
    bool m_isAnnouncing = false;
};

} // namespace vantrel
