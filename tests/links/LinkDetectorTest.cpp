#include "Scanning.h"

#include <links/LinkDetector.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using VideoProvider = MeetingLink::VideoProvider;

Url url(const QString &text) {
    return *Url::fromString(text);
}

MeetingLink video(VideoProvider provider, const QString &text) {
    return MeetingLink::video(provider, url(text));
}

LinkDetector::Detection inNotes(const QString &notes) {
    return LinkDetector::detect(std::nullopt, std::nullopt, notes);
}

struct HostRow {
    const char16_t *url;
    std::optional<VideoProvider> provider;
};

void PrintTo(const HostRow &row, std::ostream *out) {
    *out << printable(QString::fromUtf16(row.url));
}

class ProviderOfUrl : public testing::TestWithParam<HostRow> {};

TEST_P(ProviderOfUrl, IsToldByHostAndScheme) {
    EXPECT_EQ(LinkDetector::videoProvider(url(QString::fromUtf16(GetParam().url))),
              GetParam().provider);
}

INSTANTIATE_TEST_SUITE_P(
    Hosts, ProviderOfUrl,
    testing::Values(
        HostRow{u"https://zoom.us/j/1", VideoProvider::zoom},
        HostRow{u"https://us02web.zoom.us/j/1", VideoProvider::zoom},
        HostRow{u"https://a.b.zoom.us", VideoProvider::zoom},
        HostRow{u"https://Us02Web.ZOOM.Us/j/1", VideoProvider::zoom},
        HostRow{u"HTTPS://ZOOM.US/j/1", VideoProvider::zoom},
        HostRow{u"https://zoom.us:8443/pricing", VideoProvider::zoom},
        HostRow{u"ftp://zoom.us/file", VideoProvider::zoom},
        HostRow{u"zoommtg://zoom.us/join?confno=1", VideoProvider::zoom},
        HostRow{u"https://myzoom.us/j/1", VideoProvider::generic},
        HostRow{u"https://zoom.us.example.com/", VideoProvider::generic},
        HostRow{u"https://zoom.us@example.com/", VideoProvider::generic},
        HostRow{u"https://example.com/zoom.us", VideoProvider::generic},
        HostRow{u"https://meet.google.com/abc-defg-hij", VideoProvider::googleMeet},
        HostRow{u"https://Meet.Google.com/abc", VideoProvider::googleMeet},
        HostRow{u"https://www.meet.google.com/abc", VideoProvider::generic},
        HostRow{u"https://google.com/", VideoProvider::generic},
        HostRow{u"https://teams.microsoft.com/l/meetup-join/1", VideoProvider::microsoftTeams},
        HostRow{u"https://teams.live.com/meet/1", VideoProvider::microsoftTeams},
        HostRow{u"https://eu.teams.microsoft.com/l", VideoProvider::generic},
        HostRow{u"https://eu.teams.live.com/meet/1", VideoProvider::generic},
        HostRow{u"https://webex.com/", VideoProvider::webex},
        HostRow{u"https://company.webex.com/meet/jane", VideoProvider::webex},
        HostRow{u"https://notwebex.com/", VideoProvider::generic},
        HostRow{u"https://example.com", VideoProvider::generic},
        HostRow{u"http://example.com", VideoProvider::generic},
        HostRow{u"HTTPS://example.com", std::nullopt}, HostRow{u"Http://example.com", std::nullopt},
        HostRow{u"ftp://example.com", std::nullopt}, HostRow{u"tel:+41441234567", std::nullopt},
        HostRow{u"mailto:jane@zoom.us", std::nullopt}, HostRow{u"file:///tmp/a", std::nullopt},
        HostRow{u"zoom.us/j/1", std::nullopt}, HostRow{u"https:zoom.us", VideoProvider::generic}));

TEST(LinkDetector, FindsNothingInNothing) {
    const auto nothing = LinkDetector::detect(std::nullopt, std::nullopt, std::nullopt);
    EXPECT_FALSE(nothing.video);
    EXPECT_FALSE(nothing.phone);
    EXPECT_EQ(nothing, LinkDetector::detect(std::nullopt, u""_qs, u""_qs));
}

TEST(LinkDetector, LetsTheUrlFieldWinThoughItIsOnlyGeneric) {
    const auto found = LinkDetector::detect(url(u"https://example.com/agenda"_qs), std::nullopt,
                                            u"https://zoom.us/j/1"_qs);
    EXPECT_EQ(found.video, video(VideoProvider::generic, u"https://example.com/agenda"_qs));
}

TEST(LinkDetector, TakesTheLocationBeforeTheNotes) {
    const auto found = LinkDetector::detect(std::nullopt, u"https://company.webex.com/meet/jane"_qs,
                                            u"https://teams.microsoft.com/l/meetup-join/1"_qs);
    EXPECT_EQ(found.video, video(VideoProvider::webex, u"https://company.webex.com/meet/jane"_qs));
}

TEST(LinkDetector, FindsANumberBeforeALinkAndTheLink) {
    const auto found = inNotes(u"+41 44 123 45 67 or https://zoom.us/j/1"_qs);
    EXPECT_EQ(found.phone, MeetingLink::phone(u"+41 44 123 45 67"_qs));
    EXPECT_EQ(found.video, video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
}

TEST(LinkDetector, FindsANumberBehindALink) {
    const auto found = inNotes(u"https://zoom.us/j/1 or +41 44 123 45 67"_qs);
    EXPECT_EQ(found.phone, MeetingLink::phone(u"+41 44 123 45 67"_qs));
    EXPECT_EQ(found.video, video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
}

TEST(LinkDetector, TakesTheFirstOfTwoLinks) {
    EXPECT_EQ(inNotes(u"https://zoom.us/j/1 https://zoom.us/j/2"_qs).video,
              video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
    EXPECT_EQ(inNotes(u"https://example.com https://zoom.us/j/2"_qs).video,
              video(VideoProvider::generic, u"https://example.com"_qs));
}

TEST(LinkDetector, TakesTheFirstOfTwoNumbers) {
    EXPECT_EQ(inNotes(u"+41 44 123 45 67, +41 44 123 45 68"_qs).phone,
              MeetingLink::phone(u"+41 44 123 45 67"_qs));
    EXPECT_EQ(
        LinkDetector::detect(std::nullopt, u"+41 44 123 45 68"_qs, u"+41 44 123 45 67"_qs).phone,
        MeetingLink::phone(u"+41 44 123 45 68"_qs));
}

TEST(LinkDetector, FillsItsSlotsFromDifferentTexts) {
    const auto found = LinkDetector::detect(std::nullopt, u"+41 44 123 45 67"_qs,
                                            u"https://zoom.us/j/1 +41 44 123 45 68"_qs);
    EXPECT_EQ(found.phone, MeetingLink::phone(u"+41 44 123 45 67"_qs));
    EXPECT_EQ(found.video, video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
}

TEST(LinkDetector, KnowsAHostInAnyCase) {
    EXPECT_EQ(inNotes(u"https://US02WEB.Zoom.US/j/1"_qs).video,
              video(VideoProvider::zoom, u"https://US02WEB.Zoom.US/j/1"_qs));
}

TEST(LinkDetector, TakesNoNumberFromTheUrlField) {
    const auto found =
        LinkDetector::detect(url(u"tel:+41441234567"_qs), std::nullopt, std::nullopt);
    EXPECT_FALSE(found.video);
    EXPECT_FALSE(found.phone);
}

TEST(LinkDetector, GoesOnToTheTextsWhenTheUrlFieldIsNoMeeting) {
    EXPECT_EQ(LinkDetector::detect(url(u"mailto:jane@example.com"_qs), u"Room 5"_qs,
                                   u"https://zoom.us/j/1"_qs)
                  .video,
              video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
}

TEST(LinkDetector, SkipsALinkOfAnotherSchemeAndTakesTheNext) {
    EXPECT_EQ(inNotes(u"ftp://files.example.com/a then http://example.com/b"_qs).video,
              video(VideoProvider::generic, u"http://example.com/b"_qs));
    EXPECT_EQ(inNotes(u"HTTPS://EXAMPLE.COM then http://example.com/b"_qs).video,
              video(VideoProvider::generic, u"http://example.com/b"_qs));
}

TEST(LinkDetector, SkipsALinkInATextThatIsNotOfTheWebWhateverItsHost) {
    EXPECT_EQ(inNotes(u"zoommtg://zoom.us/join?confno=1 https://zoom.us/j/1"_qs).video,
              video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
    EXPECT_FALSE(inNotes(u"file://zoom.us/etc ssh://meet.google.com"_qs).video);
}

TEST(LinkDetector, SkipsAUrlFieldThatIsNotOfTheWebWhateverItsHost) {
    EXPECT_EQ(LinkDetector::detect(url(u"zoommtg://zoom.us/join?confno=1"_qs), std::nullopt,
                                   u"https://zoom.us/j/1"_qs)
                  .video,
              video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
}

TEST(LinkDetector, TakesAMeetingHostInUpperCaseWithItsScheme) {
    EXPECT_EQ(inNotes(u"HTTPS://ZOOM.US/J/1"_qs).video,
              video(VideoProvider::zoom, u"HTTPS://ZOOM.US/J/1"_qs));
}

TEST(LinkDetector, SkipsALinkThatIsNoValidUrl) {
    EXPECT_EQ(inNotes(u"https://example.com:port/ then https://zoom.us/j/1"_qs).video,
              video(VideoProvider::zoom, u"https://zoom.us/j/1"_qs));
}

TEST(LinkDetector, ReportsANumberAsItIsWritten) {
    const auto found = inNotes(u"+41 44 123 45 67"_qs);
    EXPECT_EQ(found.phone, MeetingLink::phone(u"+41 44 123 45 67"_qs));
    EXPECT_FALSE(found.video);
}

TEST(LinkDetector, ReadsNumbersAsTheDefaultLocaleWritesThem) {
    const QString text = u"044 123 45 67"_qs;
    {
        const LocaleGuard swiss(QLocale(QLocale::German, QLocale::Switzerland));
        EXPECT_EQ(inNotes(text).phone, MeetingLink::phone(text));
    }
    {
        const LocaleGuard american(QLocale(QLocale::English, QLocale::UnitedStates));
        EXPECT_FALSE(inNotes(text).phone);
    }
    const LocaleGuard swiss(QLocale(QLocale::German, QLocale::Switzerland));
    EXPECT_EQ(inNotes(text).phone, MeetingLink::phone(text));
}

} // namespace
} // namespace vantrel
