#pragma once

#include "OnboardingState.h"
#include "OnboardingViewModel.h"

#include <platform/MainQueue.h>
#include <platform/UserDefaults.h>
#include <platform/Windows.h>

#include <memory>

namespace vantrel {

/// Where it is stored that the first run was finished.
inline constexpr char completedFirstRunKey[] = "Vantrel.hasCompletedFirstRun";

/// Owns the first run's window, which is kept when it is closed. Main thread only.
class OnboardingWindowController {
public:
    /// All of them must outlive the controller. Shows nothing yet. Finishing is stored in
    /// `defaults`.
    OnboardingWindowController(std::unique_ptr<OnboardingState> state, UserDefaults &defaults,
                               Windows &windows, MainQueue &queue);
    OnboardingWindowController(const OnboardingWindowController &) = delete;
    OnboardingWindowController &operator=(const OnboardingWindowController &) = delete;

    [[nodiscard]] OnboardingState &state() { return *m_state; }

    /// Brings the window to the front, with the keyboard in it.
    void show() { m_window->show(); }

private:
    void finish();

    UserDefaults &m_defaults;
    std::unique_ptr<OnboardingState> m_state;
    OnboardingViewModel m_viewModel;
    std::unique_ptr<DesktopWindow> m_window;
};

} // namespace vantrel
