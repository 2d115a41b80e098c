#include "LaunchAtLoginManager.h"

#include <utility>

namespace vantrel {

namespace {

bool isStarted(const LoginItem &item) {
    return item.status() == LoginItem::Status::enabled;
}

} // namespace

LaunchAtLoginManager::LaunchAtLoginManager(LoginItem &item)
    : m_item(item), m_isEnabled(isStarted(item)) {}

Subscription LaunchAtLoginManager::observeIsEnabled(std::function<void(bool)> subscriber) {
    return m_isEnabled.subscribe(std::move(subscriber));
}

std::optional<QString> LaunchAtLoginManager::setEnabled(bool enabled) {
    auto error = enabled ? m_item.registerItem() : m_item.unregisterItem();
    if (!error)
        refresh();
    return error;
}

void LaunchAtLoginManager::refresh() {
    m_isEnabled.set(isStarted(m_item));
}

} // namespace vantrel
