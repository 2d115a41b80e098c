#pragma once

#include "MeetingLink.h"

#include <platform/Url.h>

#include <QLocale>
#include <QString>

#include <initializer_list>
#include <optional>

namespace vantrel {

/// Finds the way into a meeting in the three free-form places of a calendar event. Callable from
/// any thread; the answer depends on nothing but the inputs and, for phone numbers written without
/// their country, the territory of the default locale.
struct LinkDetector {
    LinkDetector() = delete;

    struct Detection {
        std::optional<MeetingLink> video; ///< Always the video case.
        std::optional<MeetingLink> phone; ///< Always the phone case.

        bool operator==(const Detection &) const = default;
    };

    /// The first joinable link and the first phone number, by source (URL, then location, then
    /// notes) and within a text by position. No provider ranks above another. Only links of the web
    /// (http, https) are reported, whatever their host.
    [[nodiscard]] static Detection detect(const std::optional<Url> &url,
                                          const std::optional<QString> &location,
                                          const std::optional<QString> &notes);

    /// Classifies by host and scheme alone; empty when the URL is no link that can be joined.
    [[nodiscard]] static std::optional<MeetingLink::VideoProvider> videoProvider(const Url &url);

private:
    static Detection detectIn(const std::optional<Url> &url,
                              std::initializer_list<const std::optional<QString> *> texts,
                              QLocale::Territory territory);
    static void scanText(const QString &text, std::optional<MeetingLink> &video,
                         std::optional<MeetingLink> &phone, QLocale::Territory territory);
};

} // namespace vantrel
