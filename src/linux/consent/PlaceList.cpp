#include "PlaceList.h"

#include <utility>

namespace vantrel {

PlaceList::PlaceList(std::vector<CalendarPlace> places) : m_places(std::move(places)) {}

int PlaceList::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_places.size());
}

QVariant PlaceList::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CalendarPlace &place = m_places[static_cast<std::size_t>(index.row())];
    if (role == NameRole || role == Qt::DisplayRole)
        return place.name;
    return role == DetailRole ? QVariant(place.detail) : QVariant();
}

QHash<int, QByteArray> PlaceList::roleNames() const {
    return {{NameRole, "name"}, {DetailRole, "detail"}};
}

} // namespace vantrel
