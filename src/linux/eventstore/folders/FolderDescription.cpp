#include "FolderDescription.h"

#include <linux/eventstore/files/Files.h>
#include <linux/eventstore/source/CalendarColors.h>

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>

namespace vantrel {

namespace {

constexpr char nameFile[] = "displayname";
constexpr char colorFile[] = "color";
constexpr std::int64_t maximumSize = 4096;

QString line(const QByteArray &path) {
    int error = 0;
    const auto bytes = files::read(path, maximumSize, error);
    return bytes ? QString::fromUtf8(*bytes).simplified() : QString();
}

StoreCalendar calendarAt(const QByteArray &path) {
    StoreCalendar calendar;
    calendar.calendarIdentifier = identifierOfPath(path);
    calendar.title = QFile::decodeName(files::nameOf(path));
    calendar.color = defaultColor(calendar.calendarIdentifier);
    calendar.allowsContentModifications = files::isWritable(path);
    return calendar;
}

} // namespace

bool hasCalendarSuffix(const QByteArray &name) {
    return name.size() > 4 && name.right(4).compare(".ics", Qt::CaseInsensitive) == 0;
}

QString identifierOfPath(const QByteArray &path) {
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha1);
    return QStringLiteral("folder-") + QString::fromLatin1(hash.toHex().left(16));
}

StoreCalendar describeFolder(const QByteArray &path) {
    StoreCalendar calendar = calendarAt(path);
    const QString name = line(path + '/' + nameFile);
    if (!name.isEmpty())
        calendar.title = name;
    if (const auto color = colorFromText(line(path + '/' + colorFile)))
        calendar.color = color;
    return calendar;
}

StoreCalendar describeFile(const QByteArray &path) {
    StoreCalendar calendar = calendarAt(path);
    if (hasCalendarSuffix(files::nameOf(path)))
        calendar.title.chop(4);
    return calendar;
}

bool looksLikeCalendar(const QByteArray &path) {
    int error = 0;
    const auto entries = files::list(path, files::Detail::kind, error);
    return entries && std::any_of(entries->begin(), entries->end(), [](const files::Entry &entry) {
               return !entry.isFolder && (hasCalendarSuffix(entry.name) || entry.name == nameFile ||
                                          entry.name == colorFile);
           });
}

} // namespace vantrel
