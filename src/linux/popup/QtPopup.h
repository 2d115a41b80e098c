#pragma once

#include <platform/Popups.h>

#include <QObject>
#include <QPointer>

#include <cstdint>
#include <memory>

class QQuickItem;
class QScreen;
class QWindow;

namespace vantrel {

class PopupStack;
class PopupWindow;
class ViewEngine;

/// One popup and its window.
class QtPopup final : public Popup {
public:
    /// `engine` and `stack` must outlive the popup.
    QtPopup(ViewContent content, PopupListener listener, ViewEngine &engine, PopupStack &stack);
    QtPopup(const QtPopup &) = delete;
    QtPopup &operator=(const QtPopup &) = delete;
    ~QtPopup() override;

    void show(const PopupPlace &place) override;
    void close() override;
    [[nodiscard]] bool isShown() const override { return m_isShown; }

    /// Null until the popup was shown for the first time.
    [[nodiscard]] QWindow *window() const;

    /// The click that its window hears of next is for the popup on top of it.
    void swallowNextClick();

private:
    [[nodiscard]] bool makeWindow();
    void chooseScreen();
    void arrange();
    void handOnKeyboard();

    const ViewContent m_content;
    const PopupListener m_listener;
    ViewEngine &m_engine;
    PopupStack &m_stack;
    PopupPlace m_place;
    QPointer<QScreen> m_screen;
    QPointer<PopupWindow> m_window;
    QPointer<QQuickItem> m_item; ///< Goes with the window.
    bool m_isShown = false;
    std::uint32_t m_formerFocus = 0; ///< An X11 window's id, or zero.
    QObject m_watch;                 ///< Ends what is connected to it before the members above go.
};

} // namespace vantrel
