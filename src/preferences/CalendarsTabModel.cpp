#include "CalendarsTabModel.h"

#include "CalendarOffer.h"

namespace vantrel {

namespace {

using CalendarType = CalendarRepository::CalendarType;

CalendarOffer offerOf(const CalendarRepository::CalendarInfo &calendar) {
    const Color &color = calendar.color;
    CalendarOffer offer{calendar.id,
                        calendar.title,
                        QColor::fromRgbF(static_cast<float>(color.red),
                                         static_cast<float>(color.green),
                                         static_cast<float>(color.blue)),
                        {},
                        {}};
    switch (calendar.type) {
    case CalendarType::standard:
        break;
    case CalendarType::subscription:
        offer.mark = QStringLiteral("Subscribed");
        offer.markSymbol = QStringLiteral("dot.radiowaves.up.forward");
        break;
    case CalendarType::birthday:
        offer.mark = QStringLiteral("Birthdays");
        offer.markSymbol = QStringLiteral("gift");
        break;
    }
    return offer;
}

CalendarsTabModel::Access accessOf(CalendarAccess::Status status) {
    switch (status) {
    case CalendarAccess::Status::fullAccess:
        return CalendarsTabModel::Granted;
    case CalendarAccess::Status::restricted:
        return CalendarsTabModel::Barred;
    case CalendarAccess::Status::notDetermined:
    case CalendarAccess::Status::denied:
    case CalendarAccess::Status::writeOnly:
        return CalendarsTabModel::Missing;
    }
    Q_UNREACHABLE();
}

} // namespace

CalendarsTabModel::CalendarsTabModel(PreferencesCoordinator &coordinator,
                                     PreferencesStore &preferences)
    : m_coordinator(coordinator), m_preferences(preferences) {
    m_subscriptions = {
        coordinator.observeCalendarAccessStatus(
            [this](CalendarAccess::Status status) { takeAccess(status); }),
        coordinator.observeCalendarSnapshot(
            [this](const CalendarRepository::Snapshot &snapshot) { takeSnapshot(snapshot); }),
        preferences.selectedCalendarIDsPublisher().subscribe(
            [this](const std::set<QString> &identifiers) {
                m_selected = QStringList(identifiers.begin(), identifiers.end());
                Q_EMIT selectedChanged();
            })};
}

QVariantList CalendarsTabModel::accounts() const {
    QVariantList accounts;
    for (const CalendarRepository::Group &group : m_snapshot.groups) {
        CalendarAccount account{group.source.title, {}};
        for (const CalendarRepository::CalendarInfo &calendar : group.calendars)
            account.calendars.append(QVariant::fromValue(offerOf(calendar)));
        accounts.append(QVariant::fromValue(account));
    }
    return accounts;
}

void CalendarsTabModel::setSelected(const QString &identifier, bool isSelected) const {
    m_preferences.setSelected(identifier, isSelected);
}

void CalendarsTabModel::takeAccess(CalendarAccess::Status status) {
    m_access = accessOf(status);
    Q_EMIT accessChanged();
}

// A list that stays the same keeps its rows, and with them the focus.
void CalendarsTabModel::takeSnapshot(const CalendarRepository::Snapshot &snapshot) {
    if (m_snapshot == snapshot)
        return;
    m_snapshot = snapshot;
    Q_EMIT accountsChanged();
}

} // namespace vantrel
