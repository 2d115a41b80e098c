#include "CalendarList.h"

#include "Output.h"

#include <QJsonArray>
#include <QJsonObject>

namespace vantrel {

namespace {

QJsonObject objectOf(const CalendarRepository::CalendarInfo &calendar, bool isSelected) {
    return {{QStringLiteral("id"), calendar.id},
            {QStringLiteral("title"), calendar.title},
            {QStringLiteral("color"), colorText(calendar.color)},
            {QStringLiteral("type"), rawValue(calendar.type)},
            {QStringLiteral("allowsModifications"), calendar.allowsModifications},
            {QStringLiteral("isSelected"), isSelected}};
}

QString lineOf(const CalendarRepository::CalendarInfo &calendar, bool isSelected) {
    return QStringLiteral("  [%1] %2  (%3, %4%5)\n")
        .arg(QLatin1Char(isSelected ? 'x' : ' '))
        .arg(printable(calendar.title), rawValue(calendar.type), colorText(calendar.color),
             calendar.allowsModifications ? QString() : QStringLiteral(", read-only"));
}

} // namespace

QByteArray CalendarList::json() const {
    QJsonArray groups;
    for (const auto &group : snapshot.groups) {
        QJsonArray calendars;
        for (const auto &calendar : group.calendars)
            calendars.append(objectOf(calendar, selection.contains(calendar.id)));
        groups.append(QJsonObject{{QStringLiteral("id"), group.source.id},
                                  {QStringLiteral("title"), group.source.title},
                                  {QStringLiteral("calendars"), calendars}});
    }
    return jsonOutput({{QStringLiteral("accessStatus"), rawValue(accessStatus)},
                       {QStringLiteral("groups"), groups},
                       {QStringLiteral("isComplete"), isComplete},
                       {QStringLiteral("isSelectionStored"), isSelectionStored},
                       {QStringLiteral("missing"), QJsonArray::fromStringList(missing())},
                       {QStringLiteral("notes"), QJsonArray::fromStringList(notes)}});
}

QByteArray CalendarList::text() const {
    QStringList blocks;
    for (const auto &group : snapshot.groups) {
        QString block = printable(group.source.title) + u'\n';
        for (const auto &calendar : group.calendars)
            block += lineOf(calendar, selection.contains(calendar.id));
        blocks.append(block);
    }
    if (blocks.isEmpty())
        blocks.append(QStringLiteral("No calendars.\n"));

    QString remarks;
    if (!isSelectionStored)
        remarks += QStringLiteral("Nothing has been chosen yet; what is marked is the default.\n");
    if (const auto count = missing().size())
        remarks += QStringLiteral("Selected but not there at the moment: %1.\n").arg(count);
    for (const QString &note : notes)
        remarks += printable(note) + u'\n';
    if (!remarks.isEmpty())
        blocks.append(remarks);
    return blocks.join(u'\n').toUtf8();
}

QStringList CalendarList::missing() const {
    std::set<QString> left = selection;
    for (const auto &group : snapshot.groups) {
        for (const auto &calendar : group.calendars)
            left.erase(calendar.id);
    }
    return {left.begin(), left.end()};
}

} // namespace vantrel
