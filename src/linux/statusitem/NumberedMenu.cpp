#include "NumberedMenu.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numeric>

namespace vantrel {

namespace {

bool readsAlike(const Menu &first, const Menu &second) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](const auto &one, const auto &other) {
                          const auto *item = std::get_if<MenuItem>(&one);
                          const auto *otherItem = std::get_if<MenuItem>(&other);
                          if (!item || !otherItem)
                              return !item && !otherItem;
                          return item->title == otherItem->title &&
                                 item->keyEquivalent == otherItem->keyEquivalent &&
                                 bool(item->action) == bool(otherItem->action);
                      });
}

/// In a label, an underscore marks the letter that chooses the line, and two are one.
QString labelOf(const QString &title) {
    QString label = title;
    return label.replace(u'_', QStringLiteral("__"));
}

QVariantMap allProperties(const MenuItem &item) {
    QVariantMap all{{QStringLiteral("label"), labelOf(item.title)}};
    if (!item.action)
        all.insert(QStringLiteral("enabled"), false);
    if (!item.keyEquivalent.isEmpty())
        all.insert(QStringLiteral("shortcut"),
                   QVariant::fromValue(QList<QStringList>{{item.keyEquivalent}}));
    return all;
}

} // namespace

bool NumberedMenu::replace(Menu menu) {
    const bool isOther = !readsAlike(m_menu, menu);
    if (isOther) {
        const int next = m_first + static_cast<int>(m_menu.size());
        // Nobody opens a menu that often; still, numbers stay above that of the menu itself.
        m_first = next > std::numeric_limits<int>::max() / 2 ? 1 : next;
        ++m_revision;
    }
    m_menu = std::move(menu);
    return isOther;
}

std::vector<int> NumberedMenu::lines() const {
    std::vector<int> numbers(m_menu.size());
    std::iota(numbers.begin(), numbers.end(), m_first);
    return numbers;
}

bool NumberedMenu::has(int line) const {
    return line == wholeMenu ||
           (line >= m_first && line - m_first < static_cast<int>(m_menu.size()));
}

QVariantMap NumberedMenu::properties(int line, const QStringList &names) const {
    QVariantMap all;
    if (line == wholeMenu)
        all.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    else if (const auto *item =
                 std::get_if<MenuItem>(&m_menu[static_cast<std::size_t>(line - m_first)]))
        all = allProperties(*item);
    else
        all.insert(QStringLiteral("type"), QStringLiteral("separator"));
    if (names.isEmpty())
        return all;
    QVariantMap some;
    for (auto property = all.cbegin(); property != all.cend(); ++property) {
        if (names.contains(property.key()))
            some.insert(property.key(), property.value());
    }
    return some;
}

std::function<void()> NumberedMenu::action(int line) const {
    if (line == wholeMenu)
        return {};
    const auto *item = std::get_if<MenuItem>(&m_menu[static_cast<std::size_t>(line - m_first)]);
    return item ? item->action : std::function<void()>();
}

std::optional<QVariant> NumberedMenu::defaultOf(const QString &property) {
    static const QVariantMap defaults{
        {QStringLiteral("type"), QStringLiteral("standard")},
        {QStringLiteral("label"), QString()},
        {QStringLiteral("enabled"), true},
        {QStringLiteral("visible"), true},
        {QStringLiteral("icon-name"), QString()},
        {QStringLiteral("icon-data"), QByteArray()},
        {QStringLiteral("shortcut"), QVariant::fromValue(QList<QStringList>())},
        {QStringLiteral("toggle-type"), QString()},
        {QStringLiteral("toggle-state"), -1},
        {QStringLiteral("children-display"), QString()},
        {QStringLiteral("disposition"), QStringLiteral("normal")},
    };
    const auto found = defaults.constFind(property);
    return found == defaults.constEnd() ? std::nullopt : std::optional(*found);
}

} // namespace vantrel
