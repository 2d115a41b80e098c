#pragma once

#include "ShownTakeover.h"

#include <fakes/FakeScreens.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingPanels.h>
#include <fakes/Times.h>
#include <takeover/TakeoverWindowController.h>
#include <theme/Theme.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vantrel {

/// A controller on fakes that writes down which callbacks ran.
class WindowControllerFixture : public testing::Test {
protected:
    using Ids = std::vector<QString>;

    static Screen screen(const char *id, int x, int width = 1920, int height = 1080) {
        return {QString::fromLatin1(id), QRect(x, 0, width, height)};
    }

    static KeyPress pressOf(Key key, const char *characters = "") {
        return {key, QString::fromLatin1(characters)};
    }

    /// Three monitors side by side, the pointer on the second, the first the main one.
    void connectThreeScreens() {
        screens.connected = {screen("left", 0), screen("middle", 1920), screen("right", 3840)};
        screens.mainScreenId = QStringLiteral("left");
        screens.mouse = QPoint(2000, 500);
    }

    void connectOneScreen() {
        screens.connected = {screen("left", 0)};
        screens.mouse = QPoint(10, 10);
    }

    /// Reconnects and lets the desktop tell of it.
    void connect(std::vector<Screen> connected) {
        screens.connected = std::move(connected);
        screens.changed.announce();
    }

    TakeoverContext context(const QString &title = QStringLiteral("Planning")) const {
        TakeoverContext made{};
        made.title = title;
        made.startsAt = queue.now() + Seconds{60};
        made.endsAt = queue.now() + Seconds{1860};
        return made;
    }

    TakeoverWindowController::Callback write(const char *word) {
        return [this, word] { answers.emplace_back(word); };
    }

    void show(std::optional<Seconds> autoCloseAfter = std::nullopt) {
        show(context(), autoCloseAfter);
    }

    void show(const TakeoverContext &shown, std::optional<Seconds> autoCloseAfter = std::nullopt) {
        controller->show(shown, palette(Theme::hearth), autoCloseAfter, write("join"),
                         write("snooze"), write("dismiss"));
    }

    bool press(Key key, const char *characters = "") {
        return panels.press(pressOf(key, characters));
    }

    [[nodiscard]] bool isShown() const { return !panels.shown().empty(); }

    [[nodiscard]] Ids interactive() const { return coveredScreens(panels, PanelRole::interactive); }

    [[nodiscard]] Ids echoes() const { return coveredScreens(panels, PanelRole::echo); }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T09:00:00")};
    fakes::FakeScreens screens;
    fakes::RecordingPanels panels;
    std::unique_ptr<TakeoverWindowController> controller =
        std::make_unique<TakeoverWindowController>(queue, screens, panels);
    std::vector<std::string> answers;

    const std::vector<std::string> nothing;
    const Seconds fadeIn{0.18};
    const Seconds fadeOut{0.14};
};

} // namespace vantrel
