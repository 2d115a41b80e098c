#include "LinkDetector.h"

#include "DetectionMemo.h"
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

/// Invitations come from strangers, and what is found in them is opened at a key press: whatever
/// its host, a link of another scheme could start any program.
bool isOfTheWeb(const Url &url) {
    const QString scheme = url.scheme().toLower();
    return scheme == u"https" || scheme == u"http";
}

std::optional<MeetingLink> videoLink(const Url &url) {
    const auto provider = isOfTheWeb(url) ? LinkDetector::videoProvider(url) : std::nullopt;
    return provider ? std::optional(MeetingLink::video(*provider, url)) : std::nullopt;
}

std::optional<MeetingLink> videoLinkInText(const QString &address) {
    if (!address.startsWith(u"http", Qt::CaseInsensitive)) // not worth parsing
        return std::nullopt;
    const auto url = Url::fromString(address);
    return url && !url->host().isEmpty() ? videoLink(*url) : std::nullopt;
}

} // namespace

LinkDetector::Detection LinkDetector::detect(const std::optional<Url> &url,
                                             const std::optional<QString> &location,
                                             const std::optional<QString> &notes) {
    static DetectionMemo memo;
    const DetectionMemo::Inputs inputs{url, location, notes, QLocale().territory()};
    if (auto known = memo.find(inputs))
        return *std::move(known);
    Detection detection = detectIn(url, {&location, &notes}, inputs.territory);
    memo.add(inputs, detection);
    return detection;
}

LinkDetector::Detection
LinkDetector::detectIn(const std::optional<Url> &url,
                       std::initializer_list<const std::optional<QString> *> texts,
                       QLocale::Territory territory) {
    Detection detection;
    if (url)
        detection.video = videoLink(*url);
    for (const auto *text : texts) {
        if (*text)
            scanText(**text, detection.video, detection.phone, territory);
    }
    return detection;
}

void LinkDetector::scanText(const QString &text, std::optional<MeetingLink> &video,
                            std::optional<MeetingLink> &phone, QLocale::Territory territory) {
    TextScanner scanner(text, territory);
    while (true) {
        if (video)
            scanner.ignore(TextScanner::Kind::link);
        if (phone)
            scanner.ignore(TextScanner::Kind::phoneNumber);
        const auto match = video && phone ? std::nullopt : scanner.next();
        if (!match)
            return;
        if (match->kind == TextScanner::Kind::phoneNumber)
            phone = MeetingLink::phone(match->text);
        else
            video = videoLinkInText(match->text);
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
