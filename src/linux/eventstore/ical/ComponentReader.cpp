#include "ComponentReader.h"

#include "EventProperties.h"
#include "EventTexts.h"
#include "ZoneRegistry.h"

#include <QStringDecoder>

#include <utility>

namespace vantrel {

namespace {

constexpr std::size_t maximumEvents = 100'000;
constexpr std::size_t maximumZoneBlocks = 200;
constexpr std::size_t maximumZoneLines = 2'000;

/// Follows the BEGIN and END lines of one text. Blocks that are not asked for are passed through
/// without keeping count of them all, so that depth costs nothing.
class Reader {
public:
    Reader(CalendarText &result, ZoneRegistry &registry)
        : m_result(result), m_registry(registry), m_properties(result.zones, result.problems) {}

    void read() {
        ContentLines lines(m_result.text);
        ContentLine line;
        while (lines.next(line)) {
            if (line.isCut)
                noteCut(line);
            if (line.isNamed("BEGIN"))
                begin(line);
            else if (line.isNamed("END"))
                end(line);
            else
                property(line);
        }
        finish(lines.skippedLines());
    }

private:
    enum class Inside { calendar, event, zone, other };

    enum class Message {
        event,
        cancellation,
        answer, ///< To an invitation: repeats of the event what it likes.
    };

    void noteCut(const ContentLine &line) {
        if (!line.isNamed("ATTACH"))
            m_result.problems.add(line.number, QStringLiteral("line longer than 64 KB, cut there"));
    }

    void begin(const ContentLine &line) {
        const QByteArrayView name = line.value.trimmed();
        if (isWord(name, "VEVENT")) {
            abandonEvent();
            m_event = EventComponent();
            m_event.line = line.number;
            enter(Inside::event);
        } else if (isWord(name, "VCALENDAR")) {
            abandonEvent();
            m_hasBegun = true;
            m_message = Message::event;
            m_result.isComplete = false;
            enter(Inside::calendar);
        } else if (isWord(name, "VTIMEZONE") && m_inside != Inside::event) {
            m_zoneLines.clear();
            enter(Inside::zone);
        } else {
            if (m_inside == Inside::zone)
                keepZoneLine(line);
            if (m_inside == Inside::calendar)
                m_inside = Inside::other;
            ++m_depth;
            if (m_depth == maximumDepth)
                m_result.problems.add(line.number, QStringLiteral("components nested too deeply"));
        }
    }

    void end(const ContentLine &line) {
        const QByteArrayView name = line.value.trimmed();
        if (isWord(name, "VEVENT")) {
            if (m_inside == Inside::event)
                closeEvent();
            enter(Inside::calendar);
        } else if (isWord(name, "VCALENDAR")) {
            abandonEvent();
            m_result.isComplete = m_hasBegun;
            enter(Inside::calendar);
        } else if (isWord(name, "VTIMEZONE")) {
            if (m_inside == Inside::zone && m_zoneBlocks.size() < maximumZoneBlocks)
                m_zoneBlocks.push_back(std::move(m_zoneLines));
            m_zoneLines.clear();
            enter(Inside::calendar);
        } else if (m_depth > 0) {
            if (m_inside == Inside::zone)
                keepZoneLine(line);
            --m_depth;
            if (m_depth == 0 && m_inside == Inside::other)
                m_inside = Inside::calendar;
        }
    }

    void property(const ContentLine &line) {
        if (m_inside == Inside::zone)
            keepZoneLine(line);
        else if (m_depth > 0)
            return; // An alarm's, or of a component that is not asked for.
        else if (m_inside == Inside::event)
            m_properties.read(m_event, line);
        else if (m_inside == Inside::calendar)
            readCalendarProperty(line);
    }

    void readCalendarProperty(const ContentLine &line) {
        if (line.isNamed("X-WR-CALNAME") || (line.isNamed("NAME") && m_result.name.isEmpty()))
            m_result.name = textValue(line.value).simplified();
        else if (line.isNamed("X-APPLE-CALENDAR-COLOR") || line.isNamed("COLOR"))
            m_result.color = textValue(line.value).trimmed();
        else if (line.isNamed("METHOD"))
            m_message = messageOf(line.value.trimmed());
    }

    /// Calendars that were sent as messages say what they are for (RFC 5546, section 1.4).
    static Message messageOf(QByteArrayView method) {
        if (isWord(method, "CANCEL"))
            return Message::cancellation;
        for (const char *const answer : {"REPLY", "REFRESH", "COUNTER", "DECLINECOUNTER"}) {
            if (isWord(method, answer))
                return Message::answer;
        }
        return Message::event;
    }

    void enter(Inside inside) {
        m_inside = inside;
        m_depth = 0;
    }

    void keepZoneLine(const ContentLine &line) {
        if (m_zoneLines.size() < maximumZoneLines)
            m_zoneLines.push_back(line);
    }

    void abandonEvent() {
        if (m_inside == Inside::event)
            m_result.problems.add(m_event.line, QStringLiteral("event that does not end"));
    }

    void closeEvent() {
        if (m_message == Message::answer || !m_properties.finish(m_event))
            return;
        if (m_message == Message::cancellation)
            m_event.status = "CANCELLED";
        if (m_result.events.size() < maximumEvents)
            m_result.events.push_back(std::move(m_event));
        else
            m_result.problems.add(m_event.line,
                                  QStringLiteral("more events than one text may hold"));
    }

    void finish(int skippedLines) {
        abandonEvent();
        if (m_inside == Inside::event)
            m_result.isComplete = false;
        if (!m_hasBegun)
            m_result.problems.add(0, QStringLiteral("no calendar"));
        else if (!m_result.isComplete)
            m_result.problems.add(0, QStringLiteral("calendar that does not end"));
        if (skippedLines > 0)
            m_result.problems.add(
                0, QStringLiteral("%1 lines that are no properties").arg(skippedLines));
        for (NamedZone &zone : m_result.zones) {
            zone.zone = zoneNamed(zone.name);
            if (!zone.zone)
                m_result.problems.add(
                    0, QStringLiteral("unknown time zone; its times are taken as local"));
        }
    }

    std::shared_ptr<const Zone> zoneNamed(const QByteArray &name) {
        if (auto zone = m_registry.systemZone(name))
            return zone;
        for (const auto &block : m_zoneBlocks) {
            bool isNamed = false;
            QByteArrayView location;
            for (const ContentLine &line : block) {
                isNamed =
                    isNamed || (line.isNamed("TZID") && unquoted(line.value.trimmed()) == name);
                if (line.isNamed("X-LIC-LOCATION"))
                    location = line.value;
            }
            if (!isNamed)
                continue;
            auto zone = location.isEmpty() ? nullptr : m_registry.systemZone(location);
            return zone ? zone : m_registry.describedZone(block);
        }
        return nullptr;
    }

    static constexpr int maximumDepth = 100;

    CalendarText &m_result;
    ZoneRegistry &m_registry;
    EventProperties m_properties;
    EventComponent m_event;
    std::vector<ContentLine> m_zoneLines;
    std::vector<std::vector<ContentLine>> m_zoneBlocks;
    Inside m_inside = Inside::calendar;
    Message m_message = Message::event;
    int m_depth = 0; ///< Of blocks within the one that counts.
    bool m_hasBegun = false;
};

/// Some programs save in UTF-16, with a mark that says so.
QByteArray inUtf8(QByteArray text) {
    if (!text.startsWith("\xFF\xFE") && !text.startsWith("\xFE\xFF"))
        return text;
    QStringDecoder decode(QStringDecoder::Utf16);
    return QString(decode(text)).toUtf8();
}

} // namespace

CalendarText readCalendarText(QByteArray text, ZoneRegistry &zones) {
    CalendarText result;
    result.text = inUtf8(std::move(text));
    Reader(result, zones).read();
    return result;
}

} // namespace vantrel
