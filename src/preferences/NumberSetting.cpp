#include "NumberSetting.h"

#include <cmath>
#include <utility>

namespace vantrel {

namespace {

std::int64_t wholeNumber(double value) {
    const double whole = std::round(value);
    // 2^63 is the first number beyond; what is no number at all fails both comparisons.
    if (!(whole >= -0x1p63 && whole < 0x1p63))
        qFatal("A control's value is beyond the whole numbers of 64 bits");
    return static_cast<std::int64_t>(whole);
}

} // namespace

NumberSetting::NumberSetting(const SettingPublisher<std::int64_t> &setting,
                             std::function<void(std::int64_t)> assign,
                             std::function<QString(std::int64_t)> text)
    : m_assign(std::move(assign)),
      m_text(std::move(text)),
      m_subscription(setting.subscribe([this](std::int64_t number) {
          m_number = number;
          Q_EMIT changed();
      })) {}

void NumberSetting::assign(double value) const {
    m_assign(wholeNumber(value));
}

} // namespace vantrel
