#include "MenuTypes.h"

#include <QDBusMetaType>

namespace vantrel {

QDBusArgument &operator<<(QDBusArgument &argument, const MenuLayout &layout) {
    argument.beginStructure();
    argument << layout.id << layout.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const MenuLayout &line : layout.lines)
        argument << QDBusVariant(QVariant::fromValue(line));
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLayout &layout) {
    argument.beginStructure();
    argument >> layout.id >> layout.properties;
    layout.lines.clear();
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant line;
        argument >> line;
        layout.lines.append(qdbus_cast<MenuLayout>(line.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const MenuLine &line) {
    argument.beginStructure();
    argument << line.id << line.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, MenuLine &line) {
    argument.beginStructure();
    argument >> line.id >> line.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &event) {
    argument.beginStructure();
    argument << event.id << event.kind << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &event) {
    argument.beginStructure();
    argument >> event.id >> event.kind >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

void registerMenuTypes() {
    qDBusRegisterMetaType<MenuLayout>();
    qDBusRegisterMetaType<MenuLine>();
    qDBusRegisterMetaType<MenuLines>();
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<MenuEvents>();
    qDBusRegisterMetaType<QList<int>>();
    qDBusRegisterMetaType<QList<QStringList>>();
}

} // namespace vantrel
