#pragma once

#include <platform/Popups.h>

#include <QPointer>
#include <QQuickItem>

namespace vantrel {

class LayerScene;
class PopupCanvas;
class ViewEngine;
struct PopupArea;

/// One popup where the compositor has a layer shell: a part of the scene's canvas.
class LayerPopup final : public Popup {
public:
    /// `engine` and `scene` must outlive the popup.
    LayerPopup(ViewContent content, PopupListener listener, ViewEngine &engine, LayerScene &scene);
    LayerPopup(const LayerPopup &) = delete;
    LayerPopup &operator=(const LayerPopup &) = delete;
    ~LayerPopup() override;

    void show(const PopupPlace &place) override;
    void close() override;
    [[nodiscard]] bool isShown() const override { return m_isShown; }

    /// For the scene alone, which knows where the canvas is and when. Takes it there.
    void settle();

    void takeFocus() { m_frame->forceActiveFocus(); }

    /// In the coordinates of `Screen::frame`; empty until it has settled.
    [[nodiscard]] QRect frame() const;

private:
    [[nodiscard]] bool makeItem();
    void arrange();

    const ViewContent m_content;
    const PopupListener m_listener;
    ViewEngine &m_engine;
    LayerScene &m_scene;
    PopupPlace m_place;
    QQuickItem *m_frame;         ///< Cuts off what would hang out of a window.
    QPointer<QQuickItem> m_item; ///< Goes with the frame.
    bool m_isShown = false;
    QObject m_life; ///< Ends with the popup, which the frame may outlive.
};

} // namespace vantrel
