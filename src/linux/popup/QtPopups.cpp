#include "QtPopups.h"

#include "LayerPopup.h"
#include "QtPopup.h"

#include <linux/layershell/LayerShell.h>

#include <utility>

namespace vantrel {

QtPopups::QtPopups(MainQueue &queue, ViewEngine &engine, const LayerShell &shell)
    : m_engine(engine), m_shell(shell), m_scene(queue, shell) {}

std::unique_ptr<Popup> QtPopups::makePopup(const ViewContent &content, PopupListener listener) {
    if (m_shell.isOffered())
        return std::make_unique<LayerPopup>(content, std::move(listener), m_engine, m_scene);
    return std::make_unique<QtPopup>(content, std::move(listener), m_engine, m_stack);
}

} // namespace vantrel
