#pragma once

#include "X11Pointer.h"

#include <QObject>

#include <cstdint>
#include <optional>
#include <vector>

class QWindow;

namespace vantrel {

class QtPopup;

/// The popups that are shown, each on top of the one before, and what closes them from outside.
class PopupStack {
public:
    PopupStack();
    PopupStack(const PopupStack &) = delete;
    PopupStack &operator=(const PopupStack &) = delete;

    /// The popup is shown from here on, on top of all others.
    void push(QtPopup &popup);

    /// It is not any more. Harmless when it was not.
    void remove(QtPopup &popup);

    /// Closes what lies on top of a popup; answers whether there was anything.
    bool closeAbove(const QtPopup &popup);

    /// The one right beneath; null for the lowest.
    [[nodiscard]] QtPopup *beneath(const QtPopup &popup) const;

private:
    void closeFrom(std::size_t index);
    [[nodiscard]] std::size_t indexOf(const QtPopup &popup) const;
    void followFocus(const QWindow *focused);
    void notePress(QPoint place);
    void noteRelease();

    std::vector<QtPopup *> m_shown;
    bool m_hasHadFocus = false;
    std::optional<std::size_t> m_closesFrom; ///< As soon as the button is let go.
    X11Pointer m_pointer;
    QObject m_watch; ///< Ends what is connected to it before the members above go.
};

} // namespace vantrel
