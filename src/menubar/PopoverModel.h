#pragma once

#include "EventRowList.h"
#include "UpcomingEventsViewModel.h"

#include <platform/LocalCalendar.h>
#include <platform/Published.h>
#include <preferences/PreferencesStore.h>
#include <theme/ThemePalette.h>

#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantrel {

/// The popover as its view sees it: the view model and the settings, in QML's terms. Main thread
/// only.
class PopoverModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(Mode mode READ mode WRITE setMode NOTIFY modeChanged FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged FINAL)
    Q_PROPERTY(QString emptyLine READ emptyLine NOTIFY modeChanged FINAL)
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY isPausedChanged FINAL)
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft NOTIFY isRightToLeftChanged FINAL)
    Q_PROPERTY(vantrel::EventRowList *rows READ rows CONSTANT FINAL)
    // An Item's own `palette` is one of the platform's.
    Q_PROPERTY(
        vantrel::ThemePalette themePalette READ themePalette NOTIFY themePaletteChanged FINAL)

public:
    enum Mode { Today, All };
    Q_ENUM(Mode)

    struct Actions {
        std::function<void(const UpcomingEvent &)> join;
        /// Gets the place of the click in the coordinates of `Screen::frame`.
        std::function<void(QPoint)> openMenu;
    };

    /// What is passed in must outlive the model, and it the views that show it.
    PopoverModel(UpcomingEventsViewModel &viewModel, PreferencesStore &preferences,
                 CurrentCalendar currentCalendar, Actions actions);

    [[nodiscard]] Mode mode() const { return m_mode; }
    void setMode(Mode mode);

    [[nodiscard]] bool isEmpty() const { return m_isEmpty; }

    /// What stands in place of an empty list.
    [[nodiscard]] QString emptyLine() const;

    [[nodiscard]] bool isPaused() const { return m_isPaused; }

    /// Whether the user's language is written from right to left.
    [[nodiscard]] bool isRightToLeft() const { return m_isRightToLeft; }

    [[nodiscard]] EventRowList *rows() { return &m_rows; }

    [[nodiscard]] ThemePalette themePalette() const { return m_themePalette; }

    Q_INVOKABLE void togglePaused();

    /// Does nothing for a row without a video call.
    Q_INVOKABLE void join(int row) const;

    Q_INVOKABLE void openMenu(QPointF place) const;

Q_SIGNALS:
    void modeChanged();
    void isEmptyChanged();
    void isPausedChanged();
    void isRightToLeftChanged();
    void themePaletteChanged();

private:
    void takeMode(EventListMode mode);
    void takeGroups(const std::vector<DayGroup> &groups);

    UpcomingEventsViewModel &m_viewModel;
    PreferencesStore &m_preferences;
    const CurrentCalendar m_currentCalendar;
    const Actions m_actions;
    Mode m_mode = Today;
    bool m_isEmpty = true;
    bool m_isPaused = false;
    bool m_isRightToLeft = false;
    ThemePalette m_themePalette;
    EventRowList m_rows;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vantrel
