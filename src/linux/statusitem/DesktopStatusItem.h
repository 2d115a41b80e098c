#pragma once

#include "ItemLook.h"
#include "StatusNotifier.h"
#include "SymbolArt.h"

#include <platform/MainQueue.h>
#include <platform/StatusItem.h>

#include <QPoint>

#include <functional>
#include <memory>

namespace vantrel {

/// The program's status item, wherever the desktop shows it.
class DesktopStatusItem : public StatusItem {
public:
    DesktopStatusItem(MainQueue &queue, const SymbolArt &art, StatusItemListener listener);

    void setImage(const QString &symbol, const QString &accessibleDescription) override;
    void setTitle(const std::optional<StatusTitle> &title) override;
    void setToolTip(const QString &text) override;

private:
    [[nodiscard]] StatusNotifier::Listener notifierListener();
    void show(ItemLook look);
    void click(PointerButton button, QPoint pixel);
    /// On the loop, and not at all once the item is gone: a listener may destroy the item.
    void later(std::function<void()> work);

    MainQueue &m_queue;
    StatusItemListener m_listener;
    ItemLook m_look;
    StatusNotifier m_notifier;
    std::shared_ptr<char> m_life = std::make_shared<char>();
};

} // namespace vantrel
