#pragma once

#include "MenuTypes.h"
#include "NumberedMenu.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>
#include <QStringList>

#include <functional>

namespace vantrel {

/// The menu as the bus has it, in the shape of com.canonical.dbusmenu.xml. It is made afresh
/// whenever a host is about to show it.
class MenuObject : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    struct Listener {
        std::function<Menu()> menu;
        std::function<void(std::function<void()> action)> chosen;
    };

    explicit MenuObject(Listener listener);

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString textDirection() const;
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

    uint GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                   vantrel::MenuLayout &layout);
    vantrel::MenuLines GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames);
    QDBusVariant GetProperty(int id, const QString &name);
    void Event(int id, const QString &eventId, const QDBusVariant &data, uint timestamp);
    QList<int> EventGroup(const vantrel::MenuEvents &events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors);

Q_SIGNALS:
    void LayoutUpdated(uint revision, int parent);

private:
    /// Answers whether the menu reads otherwise than before.
    bool renew();
    /// Answers false, and the caller with an error, for a line that is not there.
    bool check(int id);
    void take(int id, const QString &eventId);

    Listener m_listener;
    NumberedMenu m_menu;
};

} // namespace vantrel
