#pragma once

#include <platform/Menu.h>

#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <optional>
#include <vector>

namespace vantrel {

/// A menu whose lines have numbers, as hosts name them. Line 0 is the menu itself.
///
/// A number belongs to one line for good: a menu that reads otherwise than the one before gets
/// numbers of its own, so that a late click on a line that is gone chooses nothing.
class NumberedMenu {
public:
    static constexpr int wholeMenu = 0;

    /// Answers whether it reads otherwise than before. The actions are taken over either way.
    bool replace(Menu menu);

    /// Grows with each menu that reads otherwise.
    [[nodiscard]] uint revision() const { return m_revision; }

    [[nodiscard]] std::vector<int> lines() const;
    [[nodiscard]] bool has(int line) const;

    /// In the names and forms of com.canonical.dbusmenu, without what has its default. The line
    /// exists. `names` limits them to some; empty: all.
    [[nodiscard]] QVariantMap properties(int line, const QStringList &names) const;

    /// Empty for a line that cannot be chosen. The line exists.
    [[nodiscard]] std::function<void()> action(int line) const;

    /// The value that a property has where it is not given; none for a name that is no property's.
    [[nodiscard]] static std::optional<QVariant> defaultOf(const QString &property);

private:
    Menu m_menu;
    int m_first = 1; ///< The number of the first line.
    uint m_revision = 1;
};

} // namespace vantrel
