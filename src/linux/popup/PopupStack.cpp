#include "PopupStack.h"

#include "QtPopup.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace vantrel {

PopupStack::PopupStack()
    : m_pointer([this](QPoint place) { notePress(place); }, [this] { noteRelease(); }) {
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &m_watch,
                     [this](const QWindow *focused) { followFocus(focused); });
    const auto closeAll = [this] { closeFrom(0); };
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &m_watch, closeAll);
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &m_watch, closeAll);
}

void PopupStack::push(QtPopup &popup) {
    if (m_shown.empty())
        m_hasHadFocus = false;
    m_closesFrom.reset(); // A press that is under way is the one that asked for the popup.
    m_shown.push_back(&popup);
    m_pointer.listen();
}

void PopupStack::remove(QtPopup &popup) {
    closeAbove(popup);
    std::erase(m_shown, &popup);
    if (m_shown.empty())
        m_pointer.stop();
}

bool PopupStack::closeAbove(const QtPopup &popup) {
    const std::size_t index = indexOf(popup);
    const bool hasAny = index + 1 < m_shown.size();
    closeFrom(index + 1);
    return hasAny;
}

QtPopup *PopupStack::beneath(const QtPopup &popup) const {
    const std::size_t index = indexOf(popup);
    return index > 0 && index < m_shown.size() ? m_shown[index - 1] : nullptr;
}

/// The topmost first; each may take further ones with it.
void PopupStack::closeFrom(std::size_t index) {
    while (m_shown.size() > index)
        m_shown.back()->close();
}

std::size_t PopupStack::indexOf(const QtPopup &popup) const {
    return static_cast<std::size_t>(std::find(m_shown.begin(), m_shown.end(), &popup) -
                                    m_shown.begin());
}

/// Popups that never got the keyboard do not lose it either.
void PopupStack::followFocus(const QWindow *focused) {
    const bool isOurs = std::any_of(m_shown.begin(), m_shown.end(), [focused](QtPopup *popup) {
        return popup->window() == focused;
    });
    if (isOurs)
        m_hasHadFocus = true;
    else if (std::exchange(m_hasHadFocus, false))
        closeFrom(0);
}

void PopupStack::notePress(QPoint place) {
    const auto clicked = std::find_if(m_shown.rbegin(), m_shown.rend(), [place](QtPopup *popup) {
        return popup->window()->geometry().contains(place);
    });
    m_closesFrom = static_cast<std::size_t>(m_shown.rend() - clicked);
    // The server's news of a release may be here before Qt delivers the press.
    if (clicked != m_shown.rbegin() && clicked != m_shown.rend())
        (*clicked)->swallowNextClick();
}

void PopupStack::noteRelease() {
    if (m_closesFrom)
        closeFrom(*std::exchange(m_closesFrom, std::nullopt));
}

} // namespace vantrel
