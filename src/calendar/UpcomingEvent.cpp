#include "UpcomingEvent.h"

namespace vantrel {

QString UpcomingEvent::eventIdentifier() const {
    const QString first = id.section(u'|', 0, 0, QString::SectionSkipEmpty);
    return first.isEmpty() ? id : first;
}

std::optional<QString> UpcomingEvent::detailPreview() const {
    if (const auto *video = videoLink ? videoLink->asVideo() : nullptr)
        return video->url.absoluteString();
    if (location && !location->isEmpty())
        return location;
    if (const auto *phone = phoneLink ? phoneLink->asPhone() : nullptr)
        return phone->rawNumber;
    return std::nullopt;
}

} // namespace vantrel
