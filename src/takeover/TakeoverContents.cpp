#include "TakeoverContents.h"

#include <theme/DisplayTitle.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>

extern void qml_register_types_Vantrel_Takeover();

namespace vantrel {

namespace {

ViewContent content(const QString &typeName, QVariantMap properties, const Palette &palette) {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Takeover;
    useThemeModule();
    properties.insert(QStringLiteral("themePalette"), QVariant::fromValue(ThemePalette(palette)));
    return {QStringLiteral("Vantrel.Takeover"), typeName, std::move(properties)};
}

} // namespace

ViewContent takeoverViewContent(TakeoverViewModel &viewModel, const Palette &palette) {
    return content(QStringLiteral("TakeoverView"),
                   {{QStringLiteral("viewModel"), QVariant::fromValue(&viewModel)}}, palette);
}

ViewContent takeoverEchoContent(const QString &title, const Palette &palette) {
    return content(QStringLiteral("TakeoverEchoView"),
                   {{QStringLiteral("title"), displayTitle(title)}}, palette);
}

} // namespace vantrel
