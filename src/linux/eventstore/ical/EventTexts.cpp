#include "EventTexts.h"

#include "ContentLines.h"
#include "UserAddress.h"

#include <QStringDecoder>

#include <utility>

namespace vantrel {

namespace {

QByteArray withoutEscapes(QByteArrayView value) {
    QByteArray text;
    text.reserve(value.size());
    for (qsizetype index = 0; index < value.size(); ++index) {
        char character = value[index];
        if (character == '\\' && index + 1 < value.size()) {
            character = value[++index];
            if (character == 'n' || character == 'N')
                character = '\n';
        }
        const bool isControl = static_cast<unsigned char>(character) < 0x20 || character == 0x7f;
        if (!isControl || character == '\n' || character == '\t')
            text.append(character);
    }
    return text;
}

QString decoded(const QByteArray &bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

std::optional<QString> optionalText(const std::optional<QByteArrayView> &value) {
    return value ? std::optional(textValue(*value)) : std::nullopt;
}

StoreEventStatus statusOf(QByteArrayView text) {
    if (isWord(text, "CONFIRMED"))
        return StoreEventStatus::confirmed;
    if (isWord(text, "TENTATIVE"))
        return StoreEventStatus::tentative;
    if (isWord(text, "CANCELLED") || isWord(text, "CANCELED"))
        return StoreEventStatus::cancelled;
    return StoreEventStatus::none;
}

StoreParticipantStatus participantStatusOf(QByteArrayView text) {
    static constexpr std::pair<const char *, StoreParticipantStatus> statuses[] = {
        {"NEEDS-ACTION", StoreParticipantStatus::pending},
        {"ACCEPTED", StoreParticipantStatus::accepted},
        {"DECLINED", StoreParticipantStatus::declined},
        {"TENTATIVE", StoreParticipantStatus::tentative},
        {"DELEGATED", StoreParticipantStatus::delegated},
        {"COMPLETED", StoreParticipantStatus::completed},
        {"IN-PROCESS", StoreParticipantStatus::inProcess},
    };
    if (text.isEmpty()) // RFC 5545, section 3.2.12: the default.
        return StoreParticipantStatus::pending;
    for (const auto &[name, status] : statuses) {
        if (isWord(text, name))
            return status;
    }
    return StoreParticipantStatus::unknown;
}

bool isOneOf(QByteArrayView address, const QStringList &addresses) {
    return addresses.contains(plainAddress(textValue(address)));
}

StoreParticipant participantOf(const EventComponent::Attendee &attendee,
                               const QStringList &addresses) {
    ContentLine line;
    line.parameters = attendee.parameters;
    StoreParticipant participant;
    participant.participantStatus = participantStatusOf(line.parameter("PARTSTAT"));
    participant.isCurrentUser =
        !addresses.isEmpty() &&
        (isOneOf(attendee.address, addresses) || isOneOf(line.parameter("EMAIL"), addresses));
    return participant;
}

/// The URL property, else the conference that the event names for itself.
std::optional<Url> urlOf(const EventComponent &component) {
    for (const QByteArrayView text : {component.url, component.conference}) {
        if (text.isEmpty())
            continue;
        if (auto url = Url::fromString(decoded(text.toByteArray())))
            return url;
    }
    return std::nullopt;
}

} // namespace

QString textValue(QByteArrayView value) {
    return decoded(withoutEscapes(value));
}

StoreEvent eventOf(const EventComponent &component, const QStringList &addresses) {
    StoreEvent event;
    event.title = optionalText(component.summary);
    event.location = optionalText(component.location);
    event.notes = optionalText(component.description);
    event.url = urlOf(component);
    event.status = statusOf(component.status);
    event.isAllDay = component.start.kind == Moment::Kind::date;
    if (!component.attendees.empty()) {
        auto attendees = std::make_shared<std::vector<StoreParticipant>>();
        attendees->reserve(component.attendees.size());
        for (const auto &attendee : component.attendees)
            attendees->push_back(participantOf(attendee, addresses));
        event.attendees = std::move(attendees);
    }
    return event;
}

} // namespace vantrel
