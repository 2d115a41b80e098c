#include "PopoverContents.h"

#include <theme/ThemeModule.h>

extern void qml_register_types_Vantrel_Menubar();

namespace vantrel {

namespace {

ViewContent content(const QString &typeName, QObject *model) {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Menubar;
    useThemeModule();
    return {QStringLiteral("Vantrel.Menubar"),
            typeName,
            {{QStringLiteral("viewModel"), QVariant::fromValue(model)}}};
}

} // namespace

ViewContent upcomingEventsContent(PopoverModel &model) {
    return content(QStringLiteral("UpcomingEventsView"), &model);
}

ViewContent menuContent(MenuModel &model) {
    return content(QStringLiteral("MenuView"), &model);
}

} // namespace vantrel
