#pragma once

#include "PopupCanvas.h"
#include "PopupPlacement.h"

#include <platform/MainQueue.h>

#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class LayerPopup;

/// The popups that are shown where the compositor has a layer shell, each on top of the one before.
///
/// While there is one, a canvas lies over each output. The canvases hear of clicks elsewhere, and
/// as one of them comes under the pointer the compositor says where that is: the click that opened
/// a popup was there, of which Wayland tells nobody else. The canvas under the pointer gets the
/// popups and the keyboard; where no pointer shows itself in time, the one of the first output.
class LayerScene {
public:
    /// Both must outlive the scene.
    LayerScene(MainQueue &queue, const LayerShell &shell);
    LayerScene(const LayerScene &) = delete;
    LayerScene &operator=(const LayerScene &) = delete;
    ~LayerScene();

    /// The popup is shown from here on, on top of all others: it settles as soon as it can.
    void push(LayerPopup &popup);

    /// It is not any more. Harmless when it was not.
    void remove(LayerPopup &popup);

    /// Closes what lies on top of a popup.
    void closeAbove(const LayerPopup &popup);

    /// Where the popups lie; null until that is known.
    [[nodiscard]] PopupCanvas *home() const { return m_home; }

    [[nodiscard]] PopupArea area() const;

    /// What of the place that a popup asks for is worth following. What lies on another popup knows
    /// where that is; the place of a click the pointer knows better than who tells it.
    [[nodiscard]] PopupPlace placeFor(const LayerPopup &popup, const PopupPlace &place) const;

    /// Whether one of the canvases is in the midst of an event.
    [[nodiscard]] bool isDelivering() const;

private:
    void raise();
    void takeDown();
    void endSearchAfter(Seconds pause);
    [[nodiscard]] PopupCanvas::Handler handlerOf(QScreen &screen);
    void chooseHome(PopupCanvas &canvas, std::optional<QPoint> pointer);
    void chooseFirst();
    [[nodiscard]] bool takesPress(QPoint place);
    void closeFrom(std::size_t index);
    void followFocus(const QWindow *focused);

    MainQueue &m_queue;
    const LayerShell &m_shell;
    std::vector<LayerPopup *> m_shown;
    std::vector<PopupCanvas *> m_canvases;
    std::vector<QPointer<PopupCanvas>> m_departed; ///< Until the loop has deleted them.
    PopupCanvas *m_home = nullptr;
    std::optional<QPoint> m_click;
    ScheduledWork m_endOfSearch;
    std::size_t m_closesFrom = 0;
    bool m_hasHadFocus = false;
    QObject m_watch; ///< Ends what is connected to it before the members above go.
};

} // namespace vantrel
