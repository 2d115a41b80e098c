#pragma once

#include <platform/Url.h>

#include <QString>

#include <optional>
#include <variant>

namespace vantrel {

/// A way into a meeting: a video link or a phone number to dial.
class MeetingLink {
public:
    /// Whose meeting a video link opens; `generic` is any other web link.
    enum class VideoProvider { zoom, googleMeet, microsoftTeams, webex, generic };

    struct Video {
        VideoProvider provider;
        Url url; ///< As found: not rewritten, not shortened.

        bool operator==(const Video &) const = default;
    };

    struct Phone {
        QString rawNumber; ///< As written, with its spaces, punctuation and plus sign.

        bool operator==(const Phone &) const = default;
    };

    static MeetingLink video(VideoProvider provider, Url url);
    static MeetingLink phone(QString rawNumber);

    /// Null when the link is a phone number. Lives as long as this link.
    [[nodiscard]] const Video *asVideo() const { return std::get_if<Video>(&m_link); }

    /// Null when the link is a video link. Lives as long as this link.
    [[nodiscard]] const Phone *asPhone() const { return std::get_if<Phone>(&m_link); }

    bool operator==(const MeetingLink &) const = default;

private:
    explicit MeetingLink(std::variant<Video, Phone> link);

    std::variant<Video, Phone> m_link;
};

/// The provider's name in data: "zoom", "googleMeet", "microsoftTeams", "webex", "generic".
[[nodiscard]] QString rawValue(MeetingLink::VideoProvider provider);

/// Empty for a name that `rawValue` does not give.
[[nodiscard]] std::optional<MeetingLink::VideoProvider>
videoProviderFromRawValue(const QString &rawValue);

} // namespace vantrel
