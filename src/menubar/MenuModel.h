#pragma once

#include <platform/Menu.h>
#include <theme/ThemePalette.h>

#include <QAbstractListModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantrel {

/// A menu as its view sees it. Roles: `title` (no markup), `keyEquivalent`, `isSeparator`,
/// `isEnabled`. Main thread only.
class MenuModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft NOTIFY appearanceChanged FINAL)
    Q_PROPERTY(vantrel::ThemePalette themePalette READ themePalette NOTIFY appearanceChanged FINAL)

public:
    enum Role { TitleRole = Qt::UserRole, KeyEquivalentRole, IsSeparatorRole, IsEnabledRole };

    /// Gets the action of the item that was chosen.
    using Chosen = std::function<void(const std::function<void()> &action)>;

    /// The model must outlive the views that show it.
    explicit MenuModel(Chosen chosen);

    struct Appearance {
        ThemePalette palette;
        Qt::LayoutDirection direction = Qt::LeftToRight;
    };

    void show(Menu menu, const Appearance &appearance);

    [[nodiscard]] bool isRightToLeft() const { return m_appearance.direction == Qt::RightToLeft; }
    [[nodiscard]] ThemePalette themePalette() const { return m_appearance.palette; }

    /// Does nothing for a row that cannot be chosen.
    Q_INVOKABLE void choose(int row);

    /// Chooses the item of that key equivalent; answers whether there is one that can be chosen.
    Q_INVOKABLE bool chooseByKey(const QString &text);

    /// The next row that can be chosen, from `row` on in steps of 1 or −1, round the ends; `row`
    /// may be −1. The same row where there is none.
    Q_INVOKABLE [[nodiscard]] int rowAfter(int row, int step) const;

    /// The next row that can be chosen and whose title begins with that text, in either case, from
    /// `row` on and round the end; `row` itself where there is no other, −1 where there is none.
    Q_INVOKABLE [[nodiscard]] int rowBeginningWith(const QString &text, int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void appearanceChanged();

private:
    /// Null for a separator and for a row that there is none of.
    [[nodiscard]] const MenuItem *item(int row) const;
    [[nodiscard]] bool isEnabled(int row) const;

    const Chosen m_chosen;
    Menu m_menu;
    Appearance m_appearance;
};

} // namespace vantrel
