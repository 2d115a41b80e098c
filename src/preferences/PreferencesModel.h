#pragma once

#include "AboutTabModel.h"
#include "AppearanceTabModel.h"
#include "CalendarsTabModel.h"
#include "EventFiltersTabModel.h"
#include "GeneralTabModel.h"
#include "MenuBarTabModel.h"
#include "PreferencesTab.h"
#include "TakeoverTabModel.h"

#include <theme/ThemePalette.h>

namespace vantrel {

/// The preferences window as its view lays it out. Main thread only.
class PreferencesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    // An Item's own `palette` is one of the platform's.
    Q_PROPERTY(
        vantrel::ThemePalette themePalette READ themePalette NOTIFY themePaletteChanged FINAL)
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft NOTIFY refreshed FINAL)
    Q_PROPERTY(QVariantList tabs READ tabs CONSTANT FINAL)
    Q_PROPERTY(int selection READ selectionIndex NOTIFY selectionChanged FINAL)
    Q_PROPERTY(vantrel::CalendarsTabModel *calendars READ calendars CONSTANT FINAL)
    Q_PROPERTY(vantrel::GeneralTabModel *general READ general CONSTANT FINAL)
    Q_PROPERTY(vantrel::TakeoverTabModel *takeover READ takeover CONSTANT FINAL)
    Q_PROPERTY(vantrel::EventFiltersTabModel *eventFilters READ eventFilters CONSTANT FINAL)
    Q_PROPERTY(vantrel::MenuBarTabModel *menuBar READ menuBar CONSTANT FINAL)
    Q_PROPERTY(vantrel::AppearanceTabModel *appearance READ appearance CONSTANT FINAL)
    Q_PROPERTY(vantrel::AboutTabModel *about READ about CONSTANT FINAL)

public:
    /// All of them must outlive the model.
    PreferencesModel(PreferencesCoordinator &coordinator, PreferencesStore &preferences,
                     Workspace &workspace, CurrentCalendar currentCalendar);

    [[nodiscard]] ThemePalette themePalette() const { return m_themePalette; }
    [[nodiscard]] bool isRightToLeft() const;

    /// Of `SidebarTab`.
    [[nodiscard]] QVariantList tabs() const;

    [[nodiscard]] PreferencesTab selection() const { return m_selection; }
    /// A place in `tabs`.
    [[nodiscard]] int selectionIndex() const { return static_cast<int>(m_selection); }
    void select(PreferencesTab tab);
    Q_INVOKABLE void selectIndex(int index) { select(static_cast<PreferencesTab>(index)); }

    /// Reads anew what nobody tells of: the user's language, what is started at login.
    void refresh();

    [[nodiscard]] CalendarsTabModel *calendars() { return &m_calendars; }
    [[nodiscard]] GeneralTabModel *general() { return &m_general; }
    [[nodiscard]] TakeoverTabModel *takeover() { return &m_takeover; }
    [[nodiscard]] EventFiltersTabModel *eventFilters() { return &m_eventFilters; }
    [[nodiscard]] MenuBarTabModel *menuBar() { return &m_menuBar; }
    [[nodiscard]] AppearanceTabModel *appearance() { return &m_appearance; }
    [[nodiscard]] AboutTabModel *about() { return &m_about; }

Q_SIGNALS:
    void themePaletteChanged();
    void refreshed();
    void selectionChanged();

private:
    const CurrentCalendar m_currentCalendar;
    PreferencesTab m_selection = PreferencesTab::calendars;
    CalendarsTabModel m_calendars;
    GeneralTabModel m_general;
    TakeoverTabModel m_takeover;
    EventFiltersTabModel m_eventFilters;
    MenuBarTabModel m_menuBar;
    AppearanceTabModel m_appearance;
    AboutTabModel m_about;
    ThemePalette m_themePalette;
    Subscription m_themeSubscription;
};

} // namespace vantrel
