#include "UpcomingMenuTarget.h"

namespace vantrel {

namespace {

/// The handler may replace itself while it runs.
void call(std::function<void()> handler) {
    if (handler)
        handler();
}

} // namespace

UpcomingMenuTarget &UpcomingMenuTarget::shared() {
    static UpcomingMenuTarget target;
    return target;
}

void UpcomingMenuTarget::openPreferences() const {
    call(openPreferencesHandler);
}

void UpcomingMenuTarget::previewTakeover() const {
    call(previewTakeoverHandler);
}

void UpcomingMenuTarget::openRecap() const {
    call(openRecapHandler);
}

void UpcomingMenuTarget::quitApp() const {
    call(quitHandler);
}

Menu UpcomingMenuTarget::menu() const {
    using Target = UpcomingMenuTarget;
    return {
        MenuItem{QStringLiteral("This week's rescues"),
                 {},
                 itemAction(openRecapHandler, &Target::openRecap)},
        MenuItem{QStringLiteral("Preferences…"), QStringLiteral(","),
                 itemAction(openPreferencesHandler, &Target::openPreferences)},
        MenuItem{QStringLiteral("Preview takeover"),
                 {},
                 itemAction(previewTakeoverHandler, &Target::previewTakeover)},
        MenuSeparator{},
        MenuItem{QStringLiteral("Quit Vantrel"), QStringLiteral("q"),
                 itemAction(quitHandler, &Target::quitApp)},
    };
}

std::function<void()> UpcomingMenuTarget::itemAction(const std::function<void()> &handler,
                                                     Action action) const {
    if (!handler)
        return {};
    return [this, action] { (this->*action)(); };
}

} // namespace vantrel
