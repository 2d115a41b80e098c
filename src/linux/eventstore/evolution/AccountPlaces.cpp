#include "AccountPlaces.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QStandardPaths>

#include <algorithm>

namespace vantrel {

namespace {

constexpr qint64 largestFile = 64 * 1024;
constexpr int mostFiles = 2000;

/// A key file of GLib: members by "group/key", of which the first counts.
using KeyFile = QHash<QString, QString>;

KeyFile readKeyFile(const QString &path) {
    KeyFile members;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return members;
    QString group;
    const auto lines = QString::fromUtf8(file.read(largestFile)).split(u'\n');
    for (const QString &line : lines) {
        const QString text = line.trimmed();
        if (text.startsWith(u'[') && text.endsWith(u']')) {
            group = text.mid(1, text.size() - 2);
            members.insert(group, {});
        } else if (const auto sign = text.indexOf(u'='); sign > 0 && !text.startsWith(u'#')) {
            const QString key = group + u'/' + text.left(sign).trimmed();
            if (!members.contains(key))
                members.insert(key, text.mid(sign + 1).trimmed());
        }
    }
    return members;
}

bool isStub(const QString &parent) {
    return parent.isEmpty() || parent.endsWith(QLatin1String("-stub"));
}

QString kindOf(const KeyFile &source, const QString &group) {
    const QString name = source.value(group + QStringLiteral("/BackendName"));
    static const QHash<QString, QString> known{
        {QStringLiteral("google"), QStringLiteral("Google")},
        {QStringLiteral("ews"), QStringLiteral("Exchange")},
        {QStringLiteral("microsoft365"), QStringLiteral("Microsoft 365")},
        {QStringLiteral("webdav"), QStringLiteral("CalDAV")},
        {QStringLiteral("caldav"), QStringLiteral("CalDAV")},
        {QStringLiteral("webcal"), QStringLiteral("Subscription")},
        {QStringLiteral("contacts"), QStringLiteral("Birthdays")},
        {QStringLiteral("local"), QStringLiteral("Evolution")},
    };
    return known.value(name, name);
}

} // namespace

std::vector<CalendarPlace> accountPlaces(const QString &folder) {
    std::vector<CalendarPlace> places;
    const auto files = QDir(folder).entryList({QStringLiteral("*.source")}, QDir::Files);
    for (const QString &file : files.mid(0, mostFiles)) {
        const KeyFile source = readKeyFile(folder + u'/' + file);
        const QString name = source.value(QStringLiteral("Data Source/DisplayName"));
        const bool isOff =
            source.value(QStringLiteral("Data Source/Enabled")) == QLatin1String("false");
        const QString account = QStringLiteral("Collection");
        const QString calendar = QStringLiteral("Calendar");
        if (isOff || name.isEmpty())
            continue;
        if (source.contains(account) &&
            source.value(account + QStringLiteral("/CalendarEnabled")) != QLatin1String("false"))
            places.push_back({name, kindOf(source, account)});
        else if (source.contains(calendar) &&
                 isStub(source.value(QStringLiteral("Data Source/Parent"))))
            places.push_back({name, kindOf(source, calendar)});
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const CalendarPlace &left, const CalendarPlace &right) {
                         return left.name.compare(right.name, Qt::CaseInsensitive) < 0;
                     });
    return places;
}

std::vector<CalendarPlace> accountPlaces() {
    return accountPlaces(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                         QStringLiteral("/evolution/sources"));
}

} // namespace vantrel
