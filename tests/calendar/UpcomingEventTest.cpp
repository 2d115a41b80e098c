#include "SampleEvents.h"

#include <calendar/UpcomingEvent.h>

#include <gtest/gtest.h>

#include <unordered_set>

namespace vantrel {
namespace {

MeetingLink zoom() {
    return MeetingLink::video(MeetingLink::VideoProvider::zoom,
                              *Url::fromString(QString::fromUtf16(samples::zoomLink)));
}

MeetingLink phone() {
    return MeetingLink::phone(QString::fromUtf16(samples::phoneNumber));
}

UpcomingEvent bare() {
    UpcomingEvent event;
    event.id = QStringLiteral("work/planning|794134800");
    event.title = QStringLiteral("Planning");
    return event;
}

TEST(UpcomingEvent, IsTheSameByItsIdAlone) {
    UpcomingEvent changed = bare();
    changed.title = QStringLiteral("Review");
    changed.startDate = fakes::at("2030-01-01T00:00:00");
    changed.isRecurring = true;
    changed.videoLink = zoom();
    EXPECT_EQ(changed, bare());
    EXPECT_EQ(std::hash<UpcomingEvent>{}(changed), std::hash<UpcomingEvent>{}(bare()));
    EXPECT_EQ(qHash(changed), qHash(bare()));

    UpcomingEvent other = bare();
    other.id = QStringLiteral("work/planning|794134801");
    EXPECT_NE(other, bare());
    EXPECT_EQ((std::unordered_set<UpcomingEvent>{bare(), changed, other}).size(), 2u);
}

TEST(UpcomingEvent, NamesTheStoresEventByThePartBeforeTheBar) {
    const std::pair<const char *, const char *> rows[] = {
        {"work/planning|794134800", "work/planning"},
        {"work/a%7Cb%25|794134800", "work/a%7Cb%25"},
        {"folder-1/a%7C%7C/20260302T090000Z|-1", "folder-1/a%7C%7C/20260302T090000Z"},
        {"|794134800", "794134800"},
        {"work", "work"},
        {"|", "|"},
        {"", ""},
    };
    for (const auto &[id, identifier] : rows) {
        UpcomingEvent event;
        event.id = QLatin1String(id);
        EXPECT_EQ(event.eventIdentifier(), QLatin1String(identifier)) << id;
    }
}

TEST(UpcomingEvent, PreviewsTheVideoLinkBeforeAnythingElse) {
    UpcomingEvent event = bare();
    event.videoLink = zoom();
    event.location = QStringLiteral("Room 4");
    event.phoneLink = phone();
    EXPECT_EQ(event.detailPreview(), QString::fromUtf16(samples::zoomLink));
}

TEST(UpcomingEvent, PreviewsTheLocationBeforeThePhoneNumber) {
    UpcomingEvent event = bare();
    event.location = QStringLiteral("Room 4");
    event.phoneLink = phone();
    EXPECT_EQ(event.detailPreview(), QStringLiteral("Room 4"));
}

TEST(UpcomingEvent, PreviewsThePhoneNumberAsItWasFound) {
    UpcomingEvent event = bare();
    event.phoneLink = phone();
    EXPECT_EQ(event.detailPreview(), QString::fromUtf16(samples::phoneNumber));
}

TEST(UpcomingEvent, PassesOverAnEmptyLocation) {
    UpcomingEvent event = bare();
    event.location = QString();
    EXPECT_EQ(event.detailPreview(), std::nullopt);
    event.phoneLink = phone();
    EXPECT_EQ(event.detailPreview(), QString::fromUtf16(samples::phoneNumber));
}

TEST(UpcomingEvent, PassesOverALinkThatStandsInTheWrongPlace) {
    UpcomingEvent event = bare();
    event.videoLink = phone();
    event.phoneLink = zoom();
    EXPECT_EQ(event.detailPreview(), std::nullopt);
}

TEST(UpcomingEvent, HasNoPreviewWithoutDetails) {
    EXPECT_EQ(bare().detailPreview(), std::nullopt);
}

} // namespace
} // namespace vantrel
