#include "LinkDetector.h"

#include "TextScanner.h"

#include <QLocale>

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

LinkDetector::Detection LinkDetector::detect(const std::optional<Url> &url,
                                             const std::optional<QString> &location,
                                             const std::optional<QString> &notes) {
    Detection detection;
    if (url) {
        if (const auto provider = videoProvider(*url))
            detection.video = MeetingLink::video(*provider, *url);
    }
    for (const auto *text : {&location, &notes}) {
        if (*text)
            scanText(**text, detection.video, detection.phone);
    }
    return detection;
}

void LinkDetector::scanText(const QString &text, std::optional<MeetingLink> &video,
                            std::optional<MeetingLink> &phone) {
    TextScanner scanner(text, QLocale().territory());
    if (video)
        scanner.ignore(TextScanner::Kind::link);
    if (phone)
        scanner.ignore(TextScanner::Kind::phoneNumber);
    while (!(video && phone)) {
        const auto match = scanner.next();
        if (!match)
            return;
        if (match->kind == TextScanner::Kind::phoneNumber) {
            phone = MeetingLink::phone(match->text);
            scanner.ignore(TextScanner::Kind::phoneNumber);
        } else if (const auto url = Url::fromString(match->text)) {
            if (const auto provider = videoProvider(*url)) {
                video = MeetingLink::video(*provider, *url);
                scanner.ignore(TextScanner::Kind::link);
            }
        }
    }
}

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
