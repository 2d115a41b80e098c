#pragma once

#include "ContentLines.h"
#include "EventComponent.h"
#include "Problems.h"

#include <deque>

namespace vantrel {

/// Reads the properties of VEVENTs, line by line. Of a property that may stand once the first
/// counts.
class EventProperties {
public:
    /// TZIDs that come up are added to `zones`, without their meaning.
    EventProperties(std::deque<NamedZone> &zones, Problems &problems);

    /// Enters what the line says into the event; lines that nobody asks for are passed over.
    void read(EventComponent &event, const ContentLine &line);

    /// Completes an event whose lines have all been read: clamps and identity. False when it
    /// cannot be shown.
    bool finish(EventComponent &event);

private:
    std::optional<Moment> moment(const ContentLine &line, QByteArrayView value);
    const NamedZone *zoneNamed(QByteArrayView name);
    void readTimes(EventComponent &event, const ContentLine &line);
    bool readTexts(EventComponent &event, const ContentLine &line);
    void readList(EventComponent &event, const ContentLine &line);
    void readAddedDate(EventComponent &event, const ContentLine &line, QByteArrayView value);
    std::optional<Span> duration(const ContentLine &line, QByteArrayView value);

    std::deque<NamedZone> &m_zones;
    Problems &m_problems;
};

} // namespace vantrel
