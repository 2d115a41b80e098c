#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace vantrel {

/// A line of a menu and the lines below it, as the bus carries them.
struct MenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<MenuLayout> lines;
};

/// A line of a menu by itself.
struct MenuLine {
    int id = 0;
    QVariantMap properties;
};
using MenuLines = QList<MenuLine>;

/// What a host tells of one line.
struct MenuEvent {
    int id = 0;
    QString kind;
    QDBusVariant data;
    uint timestamp = 0;
};
using MenuEvents = QList<MenuEvent>;

QDBusArgument &operator<<(QDBusArgument &argument, const MenuLayout &layout);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLayout &layout);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuLine &line);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLine &line);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &event);

/// Makes them known to the bus. Harmless when called again.
void registerMenuTypes();

} // namespace vantrel

Q_DECLARE_METATYPE(vantrel::MenuLayout)
Q_DECLARE_METATYPE(vantrel::MenuLine)
Q_DECLARE_METATYPE(vantrel::MenuEvent)
