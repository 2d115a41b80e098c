#pragma once

#include "MenuModel.h"

#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>
#include <platform/Menu.h>
#include <platform/Popups.h>
#include <preferences/PreferencesStore.h>

#include <QPoint>

#include <memory>

namespace vantrel {

/// A menu that pops up at a click. Its window is made once. Main thread only.
class PopupMenu {
public:
    /// What is passed in must outlive the menu.
    PopupMenu(Popups &popups, PreferencesStore &preferences, MainQueue &queue,
              CurrentCalendar currentCalendar);
    PopupMenu(const PopupMenu &) = delete;
    PopupMenu &operator=(const PopupMenu &) = delete;

    /// `click` is in the coordinates of `Screen::frame`. What is chosen is done on the next turn of
    /// the loop, with the menu gone: it may destroy this object.
    void show(Menu menu, QPoint click);

    void show(Menu menu, const PopupPlace &place);

    /// Harmless when it is not shown.
    void close() { m_popup->close(); }

    [[nodiscard]] bool isShown() const { return m_popup->isShown(); }

private:
    void choose(const std::function<void()> &action);

    const PreferencesStore &m_preferences;
    MainQueue &m_queue;
    const CurrentCalendar m_currentCalendar;
    ScheduledWork m_chosen;
    MenuModel m_model;
    std::unique_ptr<Popup> m_popup;
};

} // namespace vantrel
