#pragma once

#include <platform/AccessPrompt.h>

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantrel {

/// The places whose calendars would be read. Roles: `name` and `detail`, both texts; neither is
/// markup.
class PlaceList : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The places come from the question.")

public:
    enum Role { NameRole = Qt::UserRole, DetailRole };

    explicit PlaceList(std::vector<CalendarPlace> places);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    const std::vector<CalendarPlace> m_places;
};

} // namespace vantrel
