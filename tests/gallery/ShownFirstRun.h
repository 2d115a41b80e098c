#pragma once

#include <fakes/FakeEventStore.h>
#include <fakes/FakeLoginItem.h>
#include <fakes/FakeNotificationPermission.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <onboarding/OnboardingState.h>
#include <onboarding/OnboardingViewModel.h>

namespace vantrel::gallery {

/// The first run at one of its steps, on services that were asked for nothing.
struct ShownFirstRun {
    explicit ShownFirstRun(Theme theme) {
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

} // namespace vantrel::gallery
