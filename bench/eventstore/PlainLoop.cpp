#include "PlainLoop.h"

#include <QDir>
#include <QFile>

#include <libical/ical.h>

namespace vantrel::bench {

std::size_t plainLoop(const QString &folder, qint64 from, qint64 to) {
    const icaltimezone *utc = icaltimezone_get_utc_timezone();
    const auto start = icaltime_from_timet_with_zone(from, 0, utc);
    const auto end = icaltime_from_timet_with_zone(to, 0, utc);
    std::size_t count = 0;
    const auto take = [](icalcomponent *, icaltime_span *, void *counter) {
        ++*static_cast<std::size_t *>(counter);
    };
    for (const QString &name : QDir(folder).entryList({QStringLiteral("*.ics")}, QDir::Files)) {
        QFile file(folder + QLatin1Char('/') + name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        icalcomponent *calendar = icalcomponent_new_from_string(file.readAll().constData());
        if (!calendar)
            continue;
        for (auto *event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT);
             event; event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT))
            icalcomponent_foreach_recurrence(event, start, end, take, &count);
        icalcomponent_free(calendar);
    }
    return count;
}

} // namespace vantrel::bench
