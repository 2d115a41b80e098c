#pragma once

#include <platform/ScreenLayout.h>

namespace vantrel::fakes {

/// Monitors as a test arranges them.
class FakeScreens : public ScreenLayout {
public:
    std::vector<Screen> connected;
    std::optional<QString> mainScreenId; ///< Of one that is connected; else there is no main one.
    std::optional<QPoint> mouse;

    [[nodiscard]] std::vector<Screen> screens() const override { return connected; }

    [[nodiscard]] std::optional<Screen> mainScreen() const override {
        for (const Screen &screen : connected) {
            if (screen.id == mainScreenId)
                return screen;
        }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<QPoint> mouseLocation() const override { return mouse; }
};

} // namespace vantrel::fakes
