#include "Scenes.h"
#include "ShownFirstRun.h"
#include "Stage.h"

#include <onboarding/OnboardingContents.h>

#include <functional>

namespace vantrel::gallery {

namespace {

using Preparation = std::function<void(ShownFirstRun &)>;

Scene scene(Theme theme, const char *name, OnboardingStep step, const Preparation &prepare = {},
            const std::function<void(Stage &)> &act = {}) {
    Scene made;
    made.name = QStringLiteral("onboarding-%1-%2").arg(rawValue(theme), QLatin1String(name));
    made.show = [=](const std::function<void(Stage &)> &look) {
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
    }
    return scenes;
}

} // namespace vantrel::gallery
