#include "Scenes.h"
#include "Stage.h"

#include <fakes/FakeEventStore.h>
#include <fakes/FakeLoginItem.h>
#include <fakes/FakeNotificationPermission.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <onboarding/OnboardingContents.h>

#include <functional>

namespace vantrel::gallery {

namespace {

/// The first run at one of its steps, on services that were asked for nothing.
struct FirstRun {
    explicit FirstRun(Theme theme) {
        store.authorization = StoreAuthorization::notDetermined;
        preferences.setSelectedTheme(theme);
    }

    void goTo(OnboardingStep step) {
        while (state.step() != step) {
            if (step == OnboardingStep::done && state.step() == OnboardingStep::launchAtLogin)
                store.authorization = StoreAuthorization::fullAccess;
            state.acknowledge();
            if (step == OnboardingStep::done &&
                store.authorization == StoreAuthorization::fullAccess)
                state.advanceToFirstIncompleteStep();
        }
    }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T09:00:00")};
    fakes::FakeEventStore store{[this] { return queue.now(); }};
    fakes::InMemoryUserDefaults defaults;
    fakes::FakeLoginItem loginItem;
    fakes::FakeNotificationPermission notifications;
    PreferencesStore preferences{defaults};
    CalendarAccess access{store};
    LaunchAtLoginManager launchAtLogin{loginItem};
    OnboardingState state{preferences, access, launchAtLogin, notifications, [] {}};
    OnboardingViewModel viewModel{state, queue};
};

using Preparation = std::function<void(FirstRun &)>;

Scene scene(Theme theme, const char *name, OnboardingStep step, const Preparation &prepare = {},
            const std::function<void(Stage &)> &act = {}) {
    Scene made;
    made.name = QStringLiteral("onboarding-%1-%2").arg(rawValue(theme), QLatin1String(name));
    made.show = [=](const std::function<void(Stage &)> &look) {
        FirstRun run(theme);
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
            [](FirstRun &run) { run.store.authorization = StoreAuthorization::fullAccess; },
            [](Stage &stage) { press(stage, "back"); }));
        scenes.push_back(scene(theme, "3-notifications", OnboardingStep::notifications));
        scenes.push_back(scene(
            theme, "3-notifications-allowed", OnboardingStep::notifications, [](FirstRun &run) {
                run.notifications.status = NotificationPermission::Status::authorized;
            }));
        scenes.push_back(scene(theme, "4-theme", OnboardingStep::theme));
        scenes.push_back(scene(theme, "5-demo", OnboardingStep::demoTakeover));
        scenes.push_back(scene(theme, "5-demo-fired", OnboardingStep::demoTakeover, {},
                               [](Stage &stage) { press(stage, "show"); }));
        scenes.push_back(scene(theme, "6-login", OnboardingStep::launchAtLogin));
        scenes.push_back(
            scene(theme, "6-login-failed", OnboardingStep::launchAtLogin, [](FirstRun &run) {
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
