#include "Scenes.h"
#include "Stage.h"

#include <linux/softwareupdater/UpdatesContents.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>

namespace vantrel::gallery {

namespace {

Scene scene(Theme theme, const QString &name, const Installation &installation, QSize size) {
    Scene made;
    made.name = QStringLiteral("updates-%1-%2").arg(rawValue(theme), name);
    made.show = [=](const std::function<void(Stage &)> &look) {
        useThemeModule();
        UpdatesViewModel viewModel(QStringLiteral("1.0.0"));
        viewModel.show(
            updateAdvice(installation, QStringLiteral("/home/mara/bin/vantrel"), RpmInstaller::dnf),
            QVariant::fromValue(ThemePalette(palette(theme))));
        Stage stage(updatesContent(viewModel), size);
        look(stage);
    };
    return made;
}

} // namespace

std::vector<Scene> updatesScenes() {
    constexpr QSize usual(480, 380);
    const Installation package{PackageSystem::debian, QStringLiteral("vantrel")};
    std::vector<Scene> scenes;
    for (const Theme theme : allThemes)
        scenes.push_back(scene(theme, QStringLiteral("package"), package, usual));
    scenes.push_back(scene(Theme::hearth, QStringLiteral("build"), {}, usual));
    scenes.push_back(scene(Theme::hearth, QStringLiteral("least"), package, {420, 380}));
    return scenes;
}

} // namespace vantrel::gallery
