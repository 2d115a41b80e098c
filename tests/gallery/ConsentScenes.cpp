#include "Scenes.h"
#include "Stage.h"

#include <linux/consent/ConsentQuestion.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>

namespace vantrel::gallery {

namespace {

const CalendarPlace home{QStringLiteral("Calendar Folder"),
                         QStringLiteral("~/.local/share/Vantrel/calendars")};

std::vector<CalendarPlace> some() {
    return {home,
            {QStringLiteral("mara.lindqvist@example.com"), QStringLiteral("Google")},
            {QStringLiteral("timetable.ics"), QStringLiteral("~/Downloads/timetable.ics")}};
}

std::vector<CalendarPlace> many() {
    std::vector<CalendarPlace> places{home};
    for (int number = 1; number < 40; ++number)
        places.push_back({QStringLiteral("team-%1").arg(number),
                          QStringLiteral("/srv/shared/calendars/departments/team-%1").arg(number)});
    return places;
}

std::vector<CalendarPlace> strange() {
    return {{QStringLiteral("<b>Bold</b> & <img src=x>"), QStringLiteral("/tmp/<i>x</i>")},
            {QStringLiteral("first line\nsecond line"), QStringLiteral("a\nb")},
            {QString(200, u'm'), QString(300, u'/')},
            {QStringLiteral("تقويم الفريق"), QString()}};
}

Scene scene(Theme theme, const QString &name, const std::vector<CalendarPlace> &places,
            QSize size) {
    Scene made;
    made.name = QStringLiteral("consent-%1-%2").arg(rawValue(theme), name);
    made.show = [=](const std::function<void(Stage &)> &look) {
        useThemeModule();
        ConsentViewModel viewModel(places, [](AccessPrompt::Answer) {});
        const ViewContent content =
            consentContent(viewModel, QVariant::fromValue(ThemePalette(palette(theme))));
        QSize shown = size;
        if (shown.isEmpty()) {
            const Stage measure(content, {1, 1});
            measure.root().setWidth(measure.root().implicitWidth());
            shown = QSizeF(measure.root().width(), measure.root().implicitHeight()).toSize();
        }
        Stage stage(content, shown);
        look(stage);
    };
    return made;
}

} // namespace

std::vector<Scene> consentScenes() {
    std::vector<Scene> scenes;
    for (const Theme theme : allThemes)
        scenes.push_back(scene(theme, QStringLiteral("some"), some(), {}));
    for (const Theme theme : {Theme::hearth, Theme::dusk}) {
        scenes.push_back(scene(theme, QStringLiteral("one"), {home}, {}));
        scenes.push_back(scene(theme, QStringLiteral("many"), many(), {}));
    }
    scenes.push_back(scene(Theme::hearth, QStringLiteral("strange"), strange(), {}));
    scenes.push_back(scene(Theme::hearth, QStringLiteral("small"), many(), {460, 360}));
    scenes.push_back(scene(Theme::hearth, QStringLiteral("large"), some(), {900, 700}));
    return scenes;
}

} // namespace vantrel::gallery
