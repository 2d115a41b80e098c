#include "RecapContents.h"

#include <theme/ThemeModule.h>

extern void qml_register_types_Vantrel_Rescues();

namespace vantrel {

ViewContent recapContent(RecapViewModel &viewModel) {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Rescues;
    useThemeModule();
    return {QStringLiteral("Vantrel.Rescues"),
            QStringLiteral("RecapView"),
            {{QStringLiteral("viewModel"), QVariant::fromValue(&viewModel)}}};
}

} // namespace vantrel
