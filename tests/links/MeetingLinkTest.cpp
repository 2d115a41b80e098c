#include <links/JoinTarget.h>
#include <links/MeetingLink.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using VideoProvider = MeetingLink::VideoProvider;

struct ProviderName {
    VideoProvider provider;
    const char16_t *rawValue;
};

class NamedProvider : public testing::TestWithParam<ProviderName> {};

TEST_P(NamedProvider, IsKnownByItsRawValue) {
    const QString name = QString::fromUtf16(GetParam().rawValue);
    EXPECT_EQ(rawValue(GetParam().provider), name);
    EXPECT_EQ(videoProviderFromRawValue(name), GetParam().provider);
}

INSTANTIATE_TEST_SUITE_P(All, NamedProvider,
                         testing::Values(ProviderName{VideoProvider::zoom, u"zoom"},
                                         ProviderName{VideoProvider::googleMeet, u"googleMeet"},
                                         ProviderName{VideoProvider::microsoftTeams,
                                                      u"microsoftTeams"},
                                         ProviderName{VideoProvider::webex, u"webex"},
                                         ProviderName{VideoProvider::generic, u"generic"}));

TEST(VideoProvider, IsNoneForAnUnknownRawValue) {
    for (const char16_t *name : {u"", u"Zoom", u"skype", u"zoom "})
        EXPECT_FALSE(videoProviderFromRawValue(QString::fromUtf16(name)));
}

TEST(MeetingLink, IsEitherAVideoOrAPhone) {
    const Url url = *Url::fromString(u"https://zoom.us/j/1"_qs);
    const auto video = MeetingLink::video(VideoProvider::zoom, url);
    ASSERT_TRUE(video.asVideo());
    EXPECT_EQ(video.asVideo()->provider, VideoProvider::zoom);
    EXPECT_EQ(video.asVideo()->url, url);
    EXPECT_FALSE(video.asPhone());

    const auto phone = MeetingLink::phone(u"+41 44"_qs);
    ASSERT_TRUE(phone.asPhone());
    EXPECT_EQ(phone.asPhone()->rawNumber, u"+41 44"_qs);
    EXPECT_FALSE(phone.asVideo());
}

TEST(MeetingLink, IsEqualByCaseAndContent) {
    const Url one = *Url::fromString(u"https://zoom.us/j/1"_qs);
    const Url two = *Url::fromString(u"https://zoom.us/j/2"_qs);
    const auto link = MeetingLink::video(VideoProvider::zoom, one);
    EXPECT_EQ(link, MeetingLink::video(VideoProvider::zoom, one));
    EXPECT_NE(link, MeetingLink::video(VideoProvider::generic, one));
    EXPECT_NE(link, MeetingLink::video(VideoProvider::zoom, two));
    EXPECT_NE(link, MeetingLink::phone(u"https://zoom.us/j/1"_qs));
    EXPECT_NE(MeetingLink::phone(u"1"_qs), MeetingLink::phone(u"2"_qs));
}

struct TargetRow {
    JoinTarget target;
    const char16_t *rawValue;
    const char16_t *label;
};

class NamedTarget : public testing::TestWithParam<TargetRow> {};

TEST_P(NamedTarget, HasItsRawValueAndLabel) {
    const QString name = QString::fromUtf16(GetParam().rawValue);
    EXPECT_EQ(rawValue(GetParam().target), name);
    EXPECT_EQ(joinTargetFromRawValue(name), GetParam().target);
    EXPECT_EQ(label(GetParam().target), QString::fromUtf16(GetParam().label));
}

INSTANTIATE_TEST_SUITE_P(All, NamedTarget,
                         testing::Values(TargetRow{JoinTarget::appWhenInstalled,
                                                   u"appWhenInstalled", u"App (when installed)"},
                                         TargetRow{JoinTarget::defaultBrowser, u"defaultBrowser",
                                                   u"Default browser"}));

TEST(JoinTarget, IsListedInTheOrderOfThePicker) {
    ASSERT_EQ(allJoinTargets.size(), 2U);
    EXPECT_EQ(allJoinTargets[0], JoinTarget::appWhenInstalled);
    EXPECT_EQ(allJoinTargets[1], JoinTarget::defaultBrowser);
}

TEST(JoinTarget, IsNoneForAnUnknownRawValue) {
    for (const char16_t *name : {u"", u"browser", u"DefaultBrowser"})
        EXPECT_FALSE(joinTargetFromRawValue(QString::fromUtf16(name)));
}

} // namespace
} // namespace vantrel
