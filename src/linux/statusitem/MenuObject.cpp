#include "MenuObject.h"

#include "MenuAdaptor.h"

#include <QDBusError>
#include <QLocale>

namespace vantrel {

MenuObject::MenuObject(Listener listener) : m_listener(std::move(listener)) {
    registerMenuTypes();
    new MenuAdaptor(this);
}

QString MenuObject::textDirection() const {
    // The application's own direction follows a translation, of which there may be none.
    return QLocale().textDirection() == Qt::RightToLeft ? QStringLiteral("rtl")
                                                        : QStringLiteral("ltr");
}

uint MenuObject::GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                           MenuLayout &layout) {
    if (recursionDepth < -1) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("A depth is -1 or more"));
        return 0;
    }
    if (parentId == NumberedMenu::wholeMenu)
        renew();
    if (!check(parentId))
        return 0;
    layout = {parentId, m_menu.properties(parentId, propertyNames), {}};
    if (parentId == NumberedMenu::wholeMenu && recursionDepth != 0) {
        for (const int line : m_menu.lines())
            layout.lines.append({line, m_menu.properties(line, propertyNames), {}});
    }
    return m_menu.revision();
}

MenuLines MenuObject::GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames) {
    MenuLines found;
    const auto take = [&](int line) {
        found.append({line, m_menu.properties(line, propertyNames)});
    };
    if (ids.isEmpty()) {
        take(NumberedMenu::wholeMenu);
        for (const int line : m_menu.lines())
            take(line);
    }
    for (const int line : ids) {
        if (m_menu.has(line))
            take(line);
    }
    return found;
}

QDBusVariant MenuObject::GetProperty(int id, const QString &name) {
    if (!check(id))
        return {};
    const auto byDefault = NumberedMenu::defaultOf(name);
    if (!byDefault) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such property"));
        return {};
    }
    return QDBusVariant(m_menu.properties(id, {}).value(name, *byDefault));
}

void MenuObject::Event(int id, const QString &eventId, const QDBusVariant &, uint) {
    if (check(id))
        take(id, eventId);
}

QList<int> MenuObject::EventGroup(const MenuEvents &events) {
    QList<int> unknown;
    for (const MenuEvent &event : events) {
        if (m_menu.has(event.id))
            take(event.id, event.kind);
        else
            unknown.append(event.id);
    }
    if (!events.isEmpty() && unknown.size() == events.size())
        check(unknown.first());
    return unknown;
}

bool MenuObject::AboutToShow(int id) {
    return id == NumberedMenu::wholeMenu ? renew() : (check(id), false);
}

QList<int> MenuObject::AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors) {
    QList<int> changed;
    for (const int id : ids) {
        if (!m_menu.has(id))
            idErrors.append(id);
        else if (id == NumberedMenu::wholeMenu && renew())
            changed.append(id);
    }
    if (!ids.isEmpty() && idErrors.size() == ids.size())
        check(idErrors.first());
    return changed;
}

bool MenuObject::renew() {
    const bool isOther = m_menu.replace(m_listener.menu ? m_listener.menu() : Menu());
    if (isOther)
        Q_EMIT LayoutUpdated(m_menu.revision(), NumberedMenu::wholeMenu);
    return isOther;
}

bool MenuObject::check(int id) {
    if (m_menu.has(id))
        return true;
    sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("The menu has no such line"));
    return false;
}

void MenuObject::take(int id, const QString &eventId) {
    if (eventId != u"clicked")
        return;
    if (auto action = m_menu.action(id))
        m_listener.chosen(std::move(action));
}

} // namespace vantrel
