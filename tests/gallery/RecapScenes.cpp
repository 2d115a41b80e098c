#include "Scenes.h"
#include "Stage.h"

#include <rescues/RecapContents.h>
#include <theme/Palette.h>

namespace vantrel::gallery {

namespace {

RescueStats week(std::int64_t fromTakeover, std::int64_t fromPopover, std::int64_t snoozes,
                 std::int64_t dismisses) {
    RescueStats stats;
    stats.totalRescues = fromTakeover + fromPopover;
    stats.rescuesFromTakeover = fromTakeover;
    stats.rescuesFromPopover = fromPopover;
    stats.snoozes = snoozes;
    stats.dismisses = dismisses;
    return stats;
}

Scene scene(Theme theme, const QString &name, const RescueStats &weekly, QSize size,
            const QString &language = QStringLiteral("en_US")) {
    Scene made;
    made.name = QStringLiteral("recap-%1-%2").arg(rawValue(theme), name);
    made.show = [=](const std::function<void(Stage &)> &look) {
        const Language spoken(language);
        RecapViewModel viewModel;
        viewModel.show({weekly, weekly, palette(theme), {}, {}});
        Stage stage(recapContent(viewModel), size);
        look(stage);
    };
    return made;
}

} // namespace

std::vector<Scene> recapScenes() {
    constexpr QSize usual(520, 600);
    std::vector<Scene> scenes;
    for (const Theme theme : allThemes) {
        scenes.push_back(scene(theme, QStringLiteral("week"), week(9, 3, 2, 1), usual));
        scenes.push_back(scene(theme, QStringLiteral("empty"), {}, usual));
        for (const char *language : {"de_DE", "ar_EG"})
            scenes.push_back(scene(theme, QLatin1String(language).left(2) + QStringLiteral("-week"),
                                   week(9, 3, 2, 1), usual, QLatin1String(language)));
    }
    RescueStats everything = week(1234567, 12, 44, 7);
    everything.pingsSent = 3;
    scenes.push_back(
        scene(Theme::hearth, QStringLiteral("everything-least"), everything, {480, 520}));
    scenes.push_back(
        scene(Theme::hearth, QStringLiteral("everything-large"), everything, {1200, 900}));
    return scenes;
}

} // namespace vantrel::gallery
