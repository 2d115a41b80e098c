#include "ThemeModule.h"

extern void qml_register_types_Vantrel_Theme();

namespace vantrel {

void useThemeModule() {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Theme;
}

} // namespace vantrel
