#pragma once

#include "PreferencesCoordinator.h"
#include "PreferencesStore.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantrel {

/// What the page with the calendars shows. Main thread only.
class CalendarsTabModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(Access access READ access NOTIFY accessChanged FINAL)
    Q_PROPERTY(QVariantList accounts READ accounts NOTIFY accountsChanged FINAL)
    Q_PROPERTY(QStringList selected READ selected NOTIFY selectedChanged FINAL)

public:
    enum Access {
        Granted,
        Missing, ///< The user can grant it.
        Barred   ///< By a policy of the machine.
    };
    Q_ENUM(Access)

    /// Both must outlive the model.
    CalendarsTabModel(PreferencesCoordinator &coordinator, PreferencesStore &preferences);

    [[nodiscard]] Access access() const { return m_access; }

    /// Of `CalendarAccount`.
    [[nodiscard]] QVariantList accounts() const;

    /// The identifiers of the calendars that are watched.
    [[nodiscard]] const QStringList &selected() const { return m_selected; }
    Q_INVOKABLE void setSelected(const QString &identifier, bool isSelected) const;

    Q_INVOKABLE void grantAccess() const { m_coordinator.requestCalendarAccess(); }

Q_SIGNALS:
    void accessChanged();
    void accountsChanged();
    void selectedChanged();

private:
    void takeAccess(CalendarAccess::Status status);
    void takeSnapshot(const CalendarRepository::Snapshot &snapshot);

    PreferencesCoordinator &m_coordinator;
    PreferencesStore &m_preferences;
    Access m_access = Missing;
    CalendarRepository::Snapshot m_snapshot;
    QStringList m_selected;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vantrel
