#include "MeetingLink.h"

#include <array>
#include <utility>

namespace vantrel {

namespace {

using VideoProvider = MeetingLink::VideoProvider;

struct Named {
    VideoProvider provider;
    QLatin1String rawValue;
};

constexpr std::array names{
    Named{VideoProvider::zoom, QLatin1String("zoom")},
    Named{VideoProvider::googleMeet, QLatin1String("googleMeet")},
    Named{VideoProvider::microsoftTeams, QLatin1String("microsoftTeams")},
    Named{VideoProvider::webex, QLatin1String("webex")},
    Named{VideoProvider::generic, QLatin1String("generic")},
};

} // namespace

MeetingLink MeetingLink::video(VideoProvider provider, Url url) {
    return MeetingLink(Video{provider, std::move(url)});
}

MeetingLink MeetingLink::phone(QString rawNumber) {
    return MeetingLink(Phone{std::move(rawNumber)});
}

MeetingLink::MeetingLink(std::variant<Video, Phone> link) : m_link(std::move(link)) {}

QString rawValue(MeetingLink::VideoProvider provider) {
    for (const Named &named : names) {
        if (named.provider == provider)
            return named.rawValue;
    }
    Q_UNREACHABLE();
}

std::optional<MeetingLink::VideoProvider> videoProviderFromRawValue(const QString &rawValue) {
    for (const Named &named : names) {
        if (named.rawValue == rawValue)
            return named.provider;
    }
    return std::nullopt;
}

} // namespace vantrel
