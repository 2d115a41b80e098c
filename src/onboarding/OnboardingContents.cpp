#include "OnboardingContents.h"

#include <theme/ThemeModule.h>

extern void qml_register_types_Vantrel_Onboarding();

namespace vantrel {

ViewContent onboardingContent(OnboardingViewModel &viewModel) {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Onboarding;
    useThemeModule();
    return {QStringLiteral("Vantrel.Onboarding"),
            QStringLiteral("OnboardingView"),
            {{QStringLiteral("viewModel"), QVariant::fromValue(&viewModel)}}};
}

} // namespace vantrel
