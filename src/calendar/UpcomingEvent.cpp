#include "UpcomingEvent.h"

namespace vantrel {

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
