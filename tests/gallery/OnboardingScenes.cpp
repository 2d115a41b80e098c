#include "Scenes.h"
#include "ShownFirstRun.h"
#include "Stage.h"

#include <onboarding/OnboardingContents.h>

#include <functional>

namespace vantrel::gallery {

namespace {

using Preparation = std::function<void(ShownFirstRun &)>;

Scene scene(Theme theme, const char *name, OnboardingStep step, const Preparation &prepare = {},
            const std::function<void(Stage &)> &act = {},
            const QString &language = QStringLiteral("en_US")) {
    Scene made;
    made.name = QStringLiteral("onboarding-%1-%2").arg(rawValue(theme), QLatin1String(name));
    made.show = [=](const std::function<void(Stage &)> &look) {
        const Language spoken(language);
        ShownFirstRun run(theme);
        if (prepare)
            prepare(run);
        run.goTo(step);
        Stage stage(onboardingContent(run.viewModel), {660, 640});
        stage.root().setProperty("reducedMotion", true);
        if (act)
            act(stage);
        look(stage);
    };
    return made;
}

void press(Stage &stage, const char *objectName) {
    QMetaObject::invokeMethod(stage.find(QLatin1String(objectName)), "clicked");
}

} // namespace

std::vector<Scene> onboardingScenes() {
    std::vector<Scene> scenes;
    for (const Theme theme : allThemes) {
        scenes.push_back(scene(theme, "1-welcome", OnboardingStep::welcome));
        scenes.push_back(scene(theme, "2-calendar", OnboardingStep::calendar));
        scenes.push_back(scene(
            theme, "2-calendar-granted", OnboardingStep::notifications,
            [](ShownFirstRun &run) { run.store.authorization = StoreAuthorization::fullAccess; },
            [](Stage &stage) { press(stage, "back"); }));
        scenes.push_back(scene(theme, "3-notifications", OnboardingStep::notifications));
        scenes.push_back(scene(theme, "3-notifications-allowed", OnboardingStep::notifications,
                               [](ShownFirstRun &run) {
                                   run.notifications.status =
                                       NotificationPermission::Status::authorized;
                               }));
        scenes.push_back(scene(theme, "4-theme", OnboardingStep::theme));
        scenes.push_back(scene(theme, "5-demo", OnboardingStep::demoTakeover));
        scenes.push_back(scene(theme, "5-demo-fired", OnboardingStep::demoTakeover, {},
                               [](Stage &stage) { press(stage, "show"); }));
        scenes.push_back(scene(theme, "6-login", OnboardingStep::launchAtLogin));
        scenes.push_back(
            scene(theme, "6-login-failed", OnboardingStep::launchAtLogin, [](ShownFirstRun &run) {
                run.loginItem.refusal =
                    QStringLiteral("/home/tobble/.config/autostart/org.vantrel.Vantrel.desktop "
                                   "cannot be changed: No space left on device");
                run.state.setLaunchAtLogin(true);
            }));
        scenes.push_back(scene(theme, "7-done", OnboardingStep::done));
        for (const char *language : {"de_DE", "ar_EG"}) {
            const auto add = [&](const char *page, OnboardingStep step) {
                const QByteArray name = QByteArray(language).first(2) + '-' + page;
                scenes.push_back(
                    scene(theme, name.constData(), step, {}, {}, QLatin1String(language)));
            };
            add("1-welcome", OnboardingStep::welcome);
            add("2-calendar", OnboardingStep::calendar);
            add("3-notifications", OnboardingStep::notifications);
            add("4-theme", OnboardingStep::theme);
            add("5-demo", OnboardingStep::demoTakeover);
            add("6-login", OnboardingStep::launchAtLogin);
        }
    }
    return scenes;
}

} // namespace vantrel::gallery
