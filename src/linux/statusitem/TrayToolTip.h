#pragma once

#include <platform/MainQueue.h>

#include <QRect>
#include <QString>

#include <memory>

namespace vantrel {

class ToolTipWindow;

/// The tooltip of an item in a system tray, which leaves that to the item. Plain text, line by
/// line; it shows once the pointer has rested on the item for a moment.
class TrayToolTip {
public:
    static constexpr Seconds rest{0.6};

    /// `queue` must outlive it.
    explicit TrayToolTip(MainQueue &queue);
    TrayToolTip(const TrayToolTip &) = delete;
    TrayToolTip &operator=(const TrayToolTip &) = delete;
    ~TrayToolTip();

    /// Also while it is shown.
    void setText(const QString &text);

    /// The pointer has come to an item at `place`, in the coordinates of `Screen::frame`.
    void showAt(const QRect &place);

    /// The pointer has gone, or has pressed a button.
    void hide();

private:
    void show();

    MainQueue &m_queue;
    QString m_text;
    QRect m_place;
    ScheduledWork m_rest;
    std::unique_ptr<ToolTipWindow> m_window; ///< While it is shown.
};

} // namespace vantrel
