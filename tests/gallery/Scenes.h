#pragma once

#include <theme/Theme.h>

#include <QLocale>
#include <QString>

#include <functional>
#include <vector>

namespace vantrel::gallery {

class Stage;

/// The language of what is shown while it lives, as a person's session has it.
class Language {
public:
    explicit Language(const QString &name) : m_before(QLocale()) {
        QLocale::setDefault(QLocale(name));
    }
    ~Language() { QLocale::setDefault(m_before); }
    Language(const Language &) = delete;
    Language &operator=(const Language &) = delete;

private:
    const QLocale m_before;
};

/// One picture of the gallery.
struct Scene {
    QString name; ///< Of the file, without its ending.
    std::function<void(const std::function<void(Stage &)> &)> show;
};

/// The takeover's faces, over palettes, screens and titles.
[[nodiscard]] std::vector<Scene> takeoverScenes();

/// The question for the calendars, over palettes, sizes and places.
[[nodiscard]] std::vector<Scene> consentScenes();

/// The recap, over palettes, weeks and sizes.
[[nodiscard]] std::vector<Scene> recapScenes();

/// The preferences, over palettes, languages, pages and sizes.
[[nodiscard]] std::vector<Scene> preferencesScenes();

/// The popover with the upcoming meetings and its menu, over palettes, languages and lists.
[[nodiscard]] std::vector<Scene> popoverScenes();

/// The window about updates, over palettes, installations and sizes.
[[nodiscard]] std::vector<Scene> updatesScenes();

/// The first run, over palettes, steps and what has been allowed.
[[nodiscard]] std::vector<Scene> onboardingScenes();

} // namespace vantrel::gallery
