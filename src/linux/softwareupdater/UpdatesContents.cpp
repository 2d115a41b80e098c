#include "UpdatesContents.h"

extern void qml_register_types_Vantrel_Updates();

namespace vantrel {

ViewContent updatesContent(UpdatesViewModel &viewModel) {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Updates;
    return {QStringLiteral("Vantrel.Updates"),
            QStringLiteral("UpdatesView"),
            {{QStringLiteral("viewModel"), QVariant::fromValue(&viewModel)}}};
}

} // namespace vantrel
