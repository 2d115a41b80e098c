#include "QtPopups.h"

#include "QtPopup.h"

#include <utility>

namespace vantrel {

std::unique_ptr<Popup> QtPopups::makePopup(const ViewContent &content, PopupListener listener) {
    return std::make_unique<QtPopup>(content, std::move(listener), m_engine, m_stack);
}

} // namespace vantrel
