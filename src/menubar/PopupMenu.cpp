#include "PopupMenu.h"

#include "PopoverContents.h"

#include <theme/Theme.h>

#include <QRect>
#include <QSize>

#include <utility>

namespace vantrel {

namespace {

/// From the click to the menu's corner, so that the first item is not pressed by accident.
constexpr QPoint offset(-6, 12);

} // namespace

PopupMenu::PopupMenu(Popups &popups, PreferencesStore &preferences, MainQueue &queue,
                     CurrentCalendar currentCalendar)
    : m_preferences(preferences),
      m_queue(queue),
      m_currentCalendar(std::move(currentCalendar)),
      m_model([this](const std::function<void()> &action) { choose(action); }),
      m_popup(popups.makePopup(menuContent(m_model), {})) {}

void PopupMenu::show(Menu menu, QPoint click) {
    show(std::move(menu), {QRect(click + offset, QSize(0, 0)), PopupAlignment::leading});
}

void PopupMenu::show(Menu menu, const PopupPlace &place) {
    m_model.show(std::move(menu), {ThemePalette(palette(m_preferences.selectedTheme())),
                                   m_currentCalendar().locale().textDirection()});
    m_popup->show(place);
}

void PopupMenu::choose(const std::function<void()> &action) {
    m_popup->close();
    m_chosen = m_queue.after(Seconds{0.0}, action);
}

} // namespace vantrel
