#include "LinkDetector.h"

namespace vantrel {

namespace {

using VideoProvider = MeetingLink::VideoProvider;

/// The public hosts of the meeting services.
constexpr QLatin1String zoomDomain("zoom.us");
constexpr QLatin1String googleMeetHost("meet.google.com");
constexpr QLatin1String teamsBusinessHost("teams.microsoft.com");
constexpr QLatin1String teamsConsumerHost("teams.live.com");
constexpr QLatin1String webexDomain("webex.com");

bool isDomainOrBelow(const QString &host, QLatin1String domain) {
    if (!host.endsWith(domain))
        return false;
    const auto rest = host.size() - domain.size();
    return rest == 0 || host.at(rest - 1) == u'.';
}

} // namespace

std::optional<VideoProvider> LinkDetector::videoProvider(const Url &url) {
    const QString host = url.host().toLower();
    if (isDomainOrBelow(host, zoomDomain))
        return VideoProvider::zoom;
    if (host == googleMeetHost)
        return VideoProvider::googleMeet;
    if (host == teamsBusinessHost || host == teamsConsumerHost)
        return VideoProvider::microsoftTeams;
    if (isDomainOrBelow(host, webexDomain))
        return VideoProvider::webex;
    // The scheme counts as written: "HTTPS" on another host is no web link here.
    if (url.scheme() == u"https" || url.scheme() == u"http")
        return VideoProvider::generic;
    return std::nullopt;
}

} // namespace vantrel
