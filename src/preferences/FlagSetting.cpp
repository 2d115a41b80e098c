#include "FlagSetting.h"

#include <utility>

namespace vantrel {

FlagSetting::FlagSetting(const SettingPublisher<bool> &setting, std::function<void(bool)> assign)
    : m_assign(std::move(assign)), m_subscription(setting.subscribe([this](bool isOn) {
          m_isOn = isOn;
          Q_EMIT changed();
      })) {}

} // namespace vantrel
