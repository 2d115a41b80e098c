#pragma once

#include <fakes/FakeLoginItem.h>
#include <fakes/RecordingWorkspace.h>
#include <preferences/PreferencesModel.h>
#include <system/LaunchAtLoginManager.h>

#include <optional>
#include <vector>

namespace vantrel::gallery {

/// The preferences on stand-in services.
class ShownPreferences : private PreferencesCoordinator {
public:
    /// `defaults` must outlive the object.
    explicit ShownPreferences(UserDefaults &defaults,
                              const QLocale &locale = QLocale(QStringLiteral("en_US")))
        : currentCalendar(QTimeZone::utc(), locale), preferences(defaults) {}

    LocalCalendar currentCalendar;
    PreferencesStore preferences;
    fakes::FakeLoginItem loginItem;
    LaunchAtLoginManager launchAtLogin{loginItem};
    fakes::RecordingWorkspace workspace;
    Published<CalendarRepository::Snapshot> snapshot{{}};
    Published<CalendarAccess::Status> access{CalendarAccess::Status::fullAccess};
    int accessRequests = 0;
    std::vector<std::optional<Theme>> previews;
    PreferencesModel model{*this, preferences, workspace, [this] { return currentCalendar; }};

    /// For whoever makes a model of their own.
    [[nodiscard]] PreferencesCoordinator &coordinator() { return *this; }

private:
    Subscription observeCalendarSnapshot(
        const std::function<void(const CalendarRepository::Snapshot &)> &subscriber) override {
        return snapshot.subscribe(subscriber);
    }
    Subscription observeCalendarAccessStatus(
        const std::function<void(const CalendarAccess::Status &)> &subscriber) override {
        return access.subscribe(subscriber);
    }
    void requestCalendarAccess() override { ++accessRequests; }
    void previewTakeover(std::optional<Theme> themeOverride) override {
        previews.push_back(themeOverride);
    }
    LaunchAtLoginManager &launchAtLoginManager() override { return launchAtLogin; }
};

} // namespace vantrel::gallery
