#include "Scenes.h"
#include "ShownPreferences.h"
#include "Stage.h"

#include <fakes/InMemoryUserDefaults.h>
#include <preferences/PreferencesContents.h>

namespace vantrel::gallery {

namespace {

using CalendarInfo = CalendarRepository::CalendarInfo;
using CalendarType = CalendarRepository::CalendarType;

CalendarInfo calendar(const char *title, Color color, CalendarType type = CalendarType::standard) {
    return {QString::fromUtf8(title), QString::fromUtf8(title), color, true, type};
}

CalendarRepository::Snapshot someCalendars() {
    return {{{{QStringLiteral("1"), QStringLiteral("eve@example.com")},
              {calendar("Engineering", {0.85, 0.44, 0.33, 1}),
               calendar("Public holidays", {0.36, 0.6, 0.4, 1}, CalendarType::subscription),
               calendar("Work", {0.27, 0.45, 0.77, 1})}},
             {{QStringLiteral("2"), QStringLiteral("On This Computer")},
              {calendar("Birthdays", {0.75, 0.4, 0.66, 1}, CalendarType::birthday),
               calendar("Personal", {0.9, 0.66, 0.2, 1})}}}};
}

struct Variant {
    QString name;
    PreferencesTab tab;
    std::function<void(ShownPreferences &)> prepare = [](ShownPreferences &) {};
    QSize size = {880, 600};
    QString kind = QStringLiteral("preferences");
};

Scene scene(Theme theme, const QString &language, const Variant &variant) {
    Scene made;
    made.name = QStringList{variant.kind, rawValue(theme), language, variant.name}.join(u'-');
    made.show = [=](const std::function<void(Stage &)> &look) {
        fakes::InMemoryUserDefaults defaults;
        ShownPreferences shown(defaults, QLocale(language));
        shown.preferences.setSelectedTheme(theme);
        shown.snapshot.set(someCalendars());
        shown.preferences.setSelectedCalendarIDs(
            {QStringLiteral("Work"), QStringLiteral("Engineering"), QStringLiteral("Personal")});
        shown.model.select(variant.tab);
        variant.prepare(shown);
        Stage stage(preferencesContent(shown.model), variant.size);
        look(stage);
    };
    return made;
}

std::vector<Variant> pages() {
    std::vector<Variant> variants;
    for (const PreferencesTab tab : allPreferencesTabs)
        variants.push_back({rawValue(tab), tab});
    variants.push_back(
        {QStringLiteral("noAccess"), PreferencesTab::calendars,
         [](ShownPreferences &shown) { shown.access.set(CalendarAccess::Status::denied); }});
    variants.push_back({QStringLiteral("noCalendars"), PreferencesTab::calendars,
                        [](ShownPreferences &shown) { shown.snapshot.set({}); }});
    variants.push_back({QStringLiteral("shortcutDetails"),
                        PreferencesTab::general,
                        [](ShownPreferences &shown) {
                            shown.preferences.setShortcutOnJoin(QStringLiteral("Meeting mode"));
                            shown.model.general()->setShowShortcutDetails(true);
                            shown.loginItem.refusal = QStringLiteral("The disk is full.");
                            shown.model.general()->setStartedAtLogin(true);
                        },
                        {880, 900}});
    variants.push_back(
        {QStringLiteral("nightShift"), PreferencesTab::eventFilters, [](ShownPreferences &shown) {
             shown.preferences.setWorkHoursEnabled(true);
             shown.preferences.setWorkHoursStartMinute(22 * 60);
             shown.preferences.setWorkHoursEndMinute(6 * 60);
         }});
    variants.push_back(
        {QStringLiteral("reset"), PreferencesTab::about,
         [](ShownPreferences &shown) { shown.model.about()->setShowingResetConfirm(true); }});
    return variants;
}

} // namespace

std::vector<Scene> preferencesScenes() {
    std::vector<Scene> scenes;
    for (const Variant &variant : pages()) {
        for (const Theme theme : allThemes)
            scenes.push_back(scene(theme, QStringLiteral("en"), variant));
        for (const char *language : {"de", "ar"})
            scenes.push_back(scene(Theme::hearth, QString::fromLatin1(language), variant));
        Variant least = variant;
        least.kind = QStringLiteral("preferences-least");
        least.size = {640, 440};
        scenes.push_back(scene(Theme::hearth, QStringLiteral("en"), least));
    }
    return scenes;
}

} // namespace vantrel::gallery
