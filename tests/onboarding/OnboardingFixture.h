#pragma once

#include <fakes/FakeEventStore.h>
#include <fakes/FakeLoginItem.h>
#include <fakes/FakeNotificationPermission.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <onboarding/OnboardingState.h>

#include <gtest/gtest.h>

namespace vantrel::tests {

/// The first run on services that answer when the test does. Nobody has been asked for anything.
class OnboardingFixture : public testing::Test {
protected:
    OnboardingFixture() { store.authorization = StoreAuthorization::notDetermined; }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T09:00:00")};
    fakes::FakeEventStore store{[this] { return queue.now(); }};
    fakes::InMemoryUserDefaults defaults;
    fakes::FakeLoginItem loginItem;
    fakes::FakeNotificationPermission notifications;
    PreferencesStore preferences{defaults};
    CalendarAccess access{store};
    LaunchAtLoginManager launchAtLogin{loginItem};
};

} // namespace vantrel::tests
