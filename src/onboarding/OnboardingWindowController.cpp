#include "OnboardingWindowController.h"

#include "OnboardingContents.h"

#include <platform/Log.h>

#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(onboardingLog, "onboarding")

WindowDescription onboardingWindow() {
    constexpr QSize size(660, 640);
    return {QStringLiteral("Welcome to Vantrel"), size, size, WindowLevel::floating,
            WindowSizing::fixed};
}

} // namespace

OnboardingWindowController::OnboardingWindowController(std::unique_ptr<OnboardingState> state,
                                                       UserDefaults &defaults, Windows &windows,
                                                       MainQueue &queue)
    : m_defaults(defaults),
      m_state(std::move(state)),
      m_viewModel(*m_state, queue),
      m_window(windows.makeWindow(onboardingContent(m_viewModel), onboardingWindow())) {
    m_state->onFinished = [this] { finish(); };
}

void OnboardingWindowController::finish() {
    m_defaults.setBoolean(QString::fromLatin1(completedFirstRunKey), true);
    qCInfo(onboardingLog, "onboarding finished");
    m_window->hide();
}

} // namespace vantrel
