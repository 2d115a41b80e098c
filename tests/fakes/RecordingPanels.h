#pragma once

#include <platform/ShieldingPanels.h>

#include <memory>
#include <vector>

namespace vantrel::fakes {

/// Panels that draw nothing. Each stays in `panels` after its owner dropped it, so that a test can
/// look at what became of it.
class RecordingPanels : public ShieldingPanels {
public:
    struct Record {
        Screen screen;
        PanelRole role = PanelRole::echo;
        ViewContent content;
        bool isInFront = false;
        bool exists = true;
        double opacity = 1.0;
    };

    std::vector<std::shared_ptr<Record>> panels;
    std::vector<QString> orderedFront;  ///< Screen ids, one for each call of `orderFront`.
    std::vector<QString> lostScreenIds; ///< Monitors for which no panel can be made any more.
    std::function<void(const Record &)> whenMade; ///< Called before a panel is handed out.

    [[nodiscard]] std::unique_ptr<ShieldingPanel> makePanel(const Screen &screen, PanelRole role,
                                                            const ViewContent &content) override;
    [[nodiscard]] Subscription monitorKeyDown(KeyHandler handler) override;

    /// Presses a key on the keyboard; answers whether a monitor consumed it.
    bool press(const KeyPress &key);

    [[nodiscard]] bool isMonitored() const { return !m_handler.expired(); }

    /// The panels that exist and are in front.
    [[nodiscard]] std::vector<std::shared_ptr<Record>> shown() const;

private:
    std::weak_ptr<KeyHandler> m_handler;
};

} // namespace vantrel::fakes
