#include "UpdatesViewModel.h"

namespace vantrel {

void UpdatesViewModel::show(UpdateAdvice advice, QVariant themePalette) {
    m_advice = std::move(advice);
    m_themePalette = std::move(themePalette);
    Q_EMIT changed();
}

} // namespace vantrel
