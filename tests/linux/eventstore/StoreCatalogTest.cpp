#include <fakes/Times.h>
#include <linux/eventstore/StoreCatalog.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

/// One calendar with one item, either of which can be kept from being read.
class OneItemSource : public ComponentSource {
public:
    bool canList = true;
    bool canRead = true;
    int reads = 0;
    QStringList addresses;
    StoreCalendarType type = StoreCalendarType::local;
    StoreSource account;

    void start() override {}

    std::vector<SourceCalendar> calendars() override {
        SourceCalendar calendar;
        calendar.calendar.calendarIdentifier = QStringLiteral("work");
        calendar.hasChanges = std::exchange(m_isFirst, false);
        calendar.addresses = addresses;
        calendar.calendar.type = type;
        calendar.calendar.source = account;
        return {calendar};
    }

    std::optional<std::vector<SourceItem>> items(const QString &) override {
        if (!canList)
            return std::nullopt;
        return std::vector{SourceItem{"a.ics", {1, 1, 1}}};
    }

    std::optional<QByteArray> text(const QString &, const QByteArray &) override {
        ++reads;
        if (!canRead)
            return std::nullopt;
        return QByteArray(
            "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\n"
            "DTSTART:20260302T090000Z\r\n"
            "ATTENDEE;PARTSTAT=DECLINED:mailto:Me@Work.example\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    }

    QString description(const QString &, const QByteArray &) const override { return {}; }

private:
    bool m_isFirst = true;
};

class StoreCatalogTest : public testing::Test {
protected:
    OneItemSource source;
    StoreCatalog catalog{{&source}, {}};
    EventIndex index;

    std::size_t eventsAfterARound() {
        const Instant monday = fakes::at("2026-03-02T00:00:00");
        const auto second = static_cast<UtcSeconds>(monday.time_since_epoch().count());
        if (auto calendars = catalog.bring({second, second + secondsPerDay}, QTimeZone::utc()))
            (void)index.replace(std::move(*calendars));
        return index.events(monday, monday + Seconds{86400}, {QStringLiteral("work")}).size();
    }
};

TEST_F(StoreCatalogTest, FindsTheUserByTheAddressesOfTheCalendarAsSoonAsItNamesThem) {
    const auto isUser = [this] {
        const Instant monday = fakes::at("2026-03-02T00:00:00");
        const auto events = index.events(monday, monday + Seconds{86400}, {QStringLiteral("work")});
        return events.at(0).attendees->at(0).isCurrentUser;
    };
    ASSERT_EQ(eventsAfterARound(), 1U);
    EXPECT_FALSE(isUser());
    source.addresses = {QStringLiteral("me@work.example")};
    ASSERT_EQ(eventsAfterARound(), 1U);
    EXPECT_TRUE(isUser());
}

TEST_F(StoreCatalogTest, ShowsACalendarOfAnotherKindAsSoonAsItIs) {
    ASSERT_EQ(eventsAfterARound(), 1U);
    EXPECT_EQ(index.calendars().at(0).type, StoreCalendarType::local);
    source.type = StoreCalendarType::subscription;
    ASSERT_EQ(eventsAfterARound(), 1U);
    EXPECT_EQ(index.calendars().at(0).type, StoreCalendarType::subscription);
}

TEST_F(StoreCatalogTest, ShowsACalendarInAnotherAccountOfThatNameAsSoonAsItIs) {
    source.account = {QStringLiteral("first"), QStringLiteral("Mail")};
    ASSERT_EQ(eventsAfterARound(), 1U);
    source.account.sourceIdentifier = QStringLiteral("second");
    ASSERT_EQ(eventsAfterARound(), 1U);
    EXPECT_EQ(index.calendars().at(0).source.sourceIdentifier, QStringLiteral("second"));
}

TEST_F(StoreCatalogTest, ReadsAnItemThatCouldNotBeReadOnceItCan) {
    source.canRead = false;
    EXPECT_EQ(eventsAfterARound(), 0U);
    source.canRead = true;
    EXPECT_EQ(eventsAfterARound(), 1U);
}

TEST_F(StoreCatalogTest, AsksForTheItemsAgainThatCouldNotBeListed) {
    source.canList = false;
    EXPECT_EQ(eventsAfterARound(), 0U);
    source.canList = true;
    EXPECT_EQ(eventsAfterARound(), 1U);
}

TEST_F(StoreCatalogTest, ReadsAnItemOnceAsLongAsItStaysAsItIs) {
    EXPECT_EQ(eventsAfterARound(), 1U);
    EXPECT_EQ(eventsAfterARound(), 1U);
    EXPECT_EQ(source.reads, 1);
}

} // namespace
} // namespace vantrel
