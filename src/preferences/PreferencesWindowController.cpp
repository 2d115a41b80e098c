#include "PreferencesWindowController.h"

#include "PreferencesContents.h"

#include <utility>

namespace vantrel {

namespace {

WindowDescription preferencesWindow() {
    return {QStringLiteral("Vantrel"), {880, 600}, {640, 440}, WindowLevel::normal};
}

} // namespace

PreferencesWindowController::PreferencesWindowController(PreferencesCoordinator &coordinator,
                                                         PreferencesStore &preferences,
                                                         Workspace &workspace, Windows &windows,
                                                         CurrentCalendar currentCalendar)
    : m_model(coordinator, preferences, workspace, std::move(currentCalendar)),
      m_window(windows.makeWindow(preferencesContent(m_model), preferencesWindow())) {}

void PreferencesWindowController::show() {
    m_model.refresh();
    m_window->show();
}

} // namespace vantrel
