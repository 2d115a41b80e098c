#pragma once

#include "ItemLook.h"
#include "StatusNotifier.h"
#include "SymbolArt.h"
#include "TrayIcon.h"
#include "TrayToolTip.h"

#include <platform/MainQueue.h>
#include <platform/StatusItem.h>

#include <QRect>

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

/// The program's status item, wherever the desktop shows it: on the session bus while a host
/// of status items shows it, else in the system tray of an X11 desktop. Never in both.
class DesktopStatusItem : public StatusItem {
public:
    DesktopStatusItem(MainQueue &queue, const SymbolArt &art, StatusItemListener listener);

    void setImage(const QString &symbol, const QString &accessibleDescription) override;
    void setTitle(const std::optional<StatusTitle> &title) override;
    void setToolTip(const QString &text) override;
    [[nodiscard]] StatusItemPlace place() const override;

private:
    [[nodiscard]] StatusNotifier::Listener notifierListener();
    void show(ItemLook look);
    void follow(bool isShownByHost);
    void dock();
    void activate(PointerButton button, const std::optional<QRect> &place);
    void click(const StatusItemClick &click);
    /// On the loop, and not at all once the item is gone: a listener may destroy the item.
    void later(std::function<void()> work);

    MainQueue &m_queue;
    StatusItemListener m_listener;
    ItemLook m_look;
    SymbolArt m_art;
    bool m_isShownByHost = false;
    TrayToolTip m_trayToolTip;
    std::unique_ptr<TrayIcon> m_trayIcon; ///< While no host shows the item.
    StatusNotifier m_notifier;
    std::shared_ptr<char> m_life = std::make_shared<char>();
};

} // namespace vantrel
