#pragma once

#include <array>

namespace vantrel {

/// A page of the first run.
enum class OnboardingStep {
    welcome,
    calendar,
    notifications,
    theme,
    demoTakeover,
    launchAtLogin,
    done
};

/// All of them, in the order of the flow.
inline constexpr std::array allOnboardingSteps{
    OnboardingStep::welcome, OnboardingStep::calendar,     OnboardingStep::notifications,
    OnboardingStep::theme,   OnboardingStep::demoTakeover, OnboardingStep::launchAtLogin,
    OnboardingStep::done};

} // namespace vantrel
