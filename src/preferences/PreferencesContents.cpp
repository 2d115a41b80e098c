#include "PreferencesContents.h"

#include <theme/ThemeModule.h>

extern void qml_register_types_Vantrel_Preferences();

namespace vantrel {

ViewContent preferencesContent(PreferencesModel &model) {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Preferences;
    useThemeModule();
    return {QStringLiteral("Vantrel.Preferences"),
            QStringLiteral("PreferencesView"),
            {{QStringLiteral("viewModel"), QVariant::fromValue(&model)}}};
}

} // namespace vantrel
