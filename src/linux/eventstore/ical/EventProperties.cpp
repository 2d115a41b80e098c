#include "EventProperties.h"

#include "ValueList.h"

#include <QCryptographicHash>

#include <algorithm>

namespace vantrel {

namespace {

constexpr std::size_t maximumZones = 200;
constexpr std::size_t maximumRules = 8;
constexpr std::size_t maximumDates = 50'000;
constexpr std::size_t maximumAttendees = 2'000;

/// A conference may be named several times, among them as a number to dial.
bool isOfTheWeb(QByteArrayView address) {
    return isWord(address.trimmed().first(std::min<qsizetype>(address.trimmed().size(), 4)),
                  "http");
}

/// An identity for an event that has none: the same as long as its start, rule and title are.
QByteArray identityOf(const EventComponent &event) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(civilText(event.start.civil, event.start.kind == Moment::Kind::date));
    hash.addData(event.rules.empty() ? QByteArrayView("-") : event.rules.front());
    hash.addData(event.summary.value_or(QByteArrayView("-")));
    return QByteArray("without-uid-") + hash.result().toHex().left(20);
}

} // namespace

EventProperties::EventProperties(std::deque<NamedZone> &zones, Problems &problems)
    : m_zones(zones), m_problems(problems) {}

void EventProperties::read(EventComponent &event, const ContentLine &line) {
    if (!readTexts(event, line))
        readTimes(event, line);
}

bool EventProperties::readTexts(EventComponent &event, const ContentLine &line) {
    const auto setText = [&](std::optional<QByteArrayView> &text) {
        if (!text)
            text = line.value;
        return true;
    };
    const auto setValue = [&](QByteArrayView &text) {
        if (text.isEmpty() && !line.isCut)
            text = line.value.trimmed();
        return true;
    };
    if (line.isNamed("SUMMARY"))
        return setText(event.summary);
    if (line.isNamed("LOCATION"))
        return setText(event.location);
    if (line.isNamed("DESCRIPTION"))
        return setText(event.description);
    if (line.isNamed("URL"))
        return setValue(event.url);
    if (line.isNamed("CONFERENCE") || line.isNamed("X-GOOGLE-CONFERENCE") ||
        line.isNamed("X-MICROSOFT-SKYPETEAMSMEETINGURL"))
        return !isOfTheWeb(line.value) || setValue(event.conference);
    if (line.isNamed("STATUS"))
        return setValue(event.status);
    if (line.isNamed("ATTENDEE")) {
        if (event.attendees.size() < maximumAttendees && !line.isCut)
            event.attendees.push_back({line.parameters, line.value});
        return true;
    }
    if (line.isNamed("UID")) {
        if (event.uid.isEmpty())
            event.uid = line.value.trimmed().toByteArray();
        return true;
    }
    return false;
}

void EventProperties::readTimes(EventComponent &event, const ContentLine &line) {
    if (line.isNamed("DTSTART")) {
        if (!event.hasStart) {
            const auto start = moment(line, line.value);
            event.hasStart = start.has_value();
            event.start = start.value_or(Moment());
        }
    } else if (line.isNamed("DTEND")) {
        if (!event.end)
            event.end = moment(line, line.value);
    } else if (line.isNamed("DURATION")) {
        if (!event.duration)
            event.duration = duration(line, line.value);
    } else if (line.isNamed("RECURRENCE-ID")) {
        if (!event.recurrenceId) {
            event.recurrenceId = moment(line, line.value);
            event.isOverride = true;
            event.isThisAndFuture = isWord(line.parameter("RANGE"), "THISANDFUTURE");
        }
    } else if (line.isNamed("SEQUENCE")) {
        event.sequence = line.value.trimmed().toByteArray().toInt();
    } else if (line.isNamed("LAST-MODIFIED") || (line.isNamed("DTSTAMP") && event.modified == 0)) {
        if (const auto modified = parseDateTime(line.value))
            event.modified = modified->civil;
    } else
        readList(event, line);
}

void EventProperties::readList(EventComponent &event, const ContentLine &line) {
    const auto addRule = [&](std::vector<QByteArrayView> &rules) {
        if (rules.size() < maximumRules)
            rules.push_back(line.value);
        else
            m_problems.add(line.number, QStringLiteral("more rules than one series may have"));
    };
    if (line.isNamed("RRULE"))
        return addRule(event.rules);
    if (line.isNamed("EXRULE"))
        return addRule(event.exceptionRules);
    if (line.isNamed("EXDATE")) {
        forEachValue(line.value, [&](QByteArrayView value) {
            if (value.isEmpty() || event.exceptions.size() >= maximumDates)
                return;
            if (const auto exception = moment(line, value))
                event.exceptions.push_back(*exception);
        });
    } else if (line.isNamed("RDATE")) {
        forEachValue(line.value, [&](QByteArrayView value) {
            if (!value.isEmpty() && event.dates.size() < maximumDates)
                readAddedDate(event, line, value);
        });
    }
}

void EventProperties::readAddedDate(EventComponent &event, const ContentLine &line,
                                    QByteArrayView value) {
    const auto slash = value.indexOf('/');
    const auto start = moment(line, slash < 0 ? value : value.first(slash));
    if (!start)
        return;
    AddedDate date{*start, std::nullopt, std::nullopt};
    if (slash >= 0) {
        const QByteArrayView length = value.sliced(slash + 1);
        if (length.startsWith('P') || length.startsWith('+'))
            date.duration = duration(line, length);
        else
            date.end = moment(line, length);
    }
    event.dates.push_back(date);
}

bool EventProperties::finish(EventComponent &event) {
    if (!event.hasStart) {
        m_problems.add(event.line, QStringLiteral("event without a start that can be read"));
        return false;
    }
    if (event.isOverride && !event.recurrenceId) {
        m_problems.add(event.line, QStringLiteral("override of an occurrence that does not say "
                                                  "which; shown by itself"));
    }
    if (event.uid.isEmpty()) {
        m_problems.add(event.line, QStringLiteral("event without UID"));
        event.uid = identityOf(event);
    }
    return true;
}

std::optional<Moment> EventProperties::moment(const ContentLine &line, QByteArrayView value) {
    QByteArrayView zone = line.parameter("TZID");
    // "TZID=GMT+08:00:20260302T090000": a colon that ought to be in quotes. Both parts are views
    // into the same line.
    if (const auto colon = value.lastIndexOf(':'); colon >= 0) {
        if (!zone.isEmpty() && zone.end() + 1 == line.value.begin())
            zone = QByteArrayView(zone.begin(), value.begin() + colon);
        value = value.sliced(colon + 1);
    }
    const auto read = parseDateTime(value);
    if (!read) {
        m_problems.add(line.number, QStringLiteral("impossible date or time"));
        return std::nullopt;
    }
    Moment moment;
    moment.civil = read->civil;
    if (read->isDate) {
        moment.kind = Moment::Kind::date;
    } else if (!read->isUtc) {
        moment.zone = zone.isEmpty() ? nullptr : zoneNamed(zone);
        moment.kind = moment.zone ? Moment::Kind::zoned : Moment::Kind::floating;
    }
    return moment;
}

std::optional<Span> EventProperties::duration(const ContentLine &line, QByteArrayView value) {
    auto read = parseDuration(value);
    if (!read)
        m_problems.add(line.number, QStringLiteral("impossible duration"));
    return read;
}

const NamedZone *EventProperties::zoneNamed(QByteArrayView name) {
    name = name.trimmed();
    const auto known = std::find_if(m_zones.begin(), m_zones.end(),
                                    [name](const NamedZone &zone) { return name == zone.name; });
    if (known != m_zones.end())
        return &*known;
    if (m_zones.size() >= maximumZones)
        return nullptr;
    m_zones.push_back({name.toByteArray(), nullptr});
    return &m_zones.back();
}

} // namespace vantrel
