#include "MenuModel.h"

#include <algorithm>
#include <utility>

namespace vantrel {

MenuModel::MenuModel(Chosen chosen) : m_chosen(std::move(chosen)) {}

void MenuModel::show(Menu menu, const Appearance &appearance) {
    m_appearance = appearance;
    Q_EMIT appearanceChanged();
    beginResetModel();
    m_menu = std::move(menu);
    endResetModel();
}

void MenuModel::choose(int row) {
    if (!isEnabled(row))
        return;
    const std::function<void()> action = item(row)->action;
    m_chosen(action);
}

bool MenuModel::chooseByKey(const QString &text) {
    if (text.isEmpty())
        return false;
    for (int row = 0; row < rowCount(); ++row) {
        if (!isEnabled(row) || item(row)->keyEquivalent.compare(text, Qt::CaseInsensitive) != 0)
            continue;
        choose(row);
        return true;
    }
    return false;
}

int MenuModel::rowAfter(int row, int step) const {
    const int count = rowCount();
    int next = row < 0 && step < 0 ? 0 : row;
    for (int tried = 0; tried < count; ++tried) {
        next = (next + step + count) % count;
        if (isEnabled(next))
            return next;
    }
    return row;
}

int MenuModel::rowBeginningWith(const QString &text, int row) const {
    const int count = static_cast<int>(m_menu.size());
    for (int step = 1; step <= count && !text.trimmed().isEmpty(); ++step) {
        const int candidate = (std::max(row, -1) + step) % count;
        if (isEnabled(candidate) && item(candidate)->title.startsWith(text, Qt::CaseInsensitive))
            return candidate;
    }
    return -1;
}

int MenuModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_menu.size());
}

QVariant MenuModel::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MenuItem *shown = item(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return shown ? shown->title : QString();
    case KeyEquivalentRole:
        return shown ? shown->keyEquivalent : QString();
    case IsSeparatorRole:
        return shown == nullptr;
    case IsEnabledRole:
        return isEnabled(index.row());
    default:
        return {};
    }
}

QHash<int, QByteArray> MenuModel::roleNames() const {
    return {{TitleRole, "title"},
            {KeyEquivalentRole, "keyEquivalent"},
            {IsSeparatorRole, "isSeparator"},
            {IsEnabledRole, "isEnabled"}};
}

const MenuItem *MenuModel::item(int row) const {
    const bool isThere = row >= 0 && row < rowCount();
    return isThere ? std::get_if<MenuItem>(&m_menu[static_cast<std::size_t>(row)]) : nullptr;
}

bool MenuModel::isEnabled(int row) const {
    const MenuItem *asked = item(row);
    return asked && asked->action;
}

} // namespace vantrel
