#include "EvolutionFixture.h"
#include "LoopbackServers.h"
#include "RemoteSources.h"

namespace vantrel {
namespace {

using namespace tests;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RemoteCalendars : public EvolutionFixture {
protected:
    void writeAccount(quint16 port) const { session.writeSource(account, accountSource(port)); }

    void writeSubscription(quint16 port) const {
        session.writeSource(web, subscriptionSource(port));
    }

    /// Spares the minute until the service looks by itself.
    void refresh(const QString &calendar) { write({QStringLiteral("refresh"), calendar}); }

    const QString account = QStringLiteral("account");
    const QString web = QStringLiteral("web");
};

TEST_F(RemoteCalendars, ShowACalDavAccountAndWhatItsServerGets) {
    CalDavServer server(session.path(QStringLiteral("caldav")));
    server.put("one", event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"
                                   "ATTENDEE;PARTSTAT=ACCEPTED:mailto:me@office.example\n"));
    writeAccount(server.port());
    begin();
    settleTitles(ElementsAre("One"), "what the server has");
    const auto office = calendar(QStringLiteral("Office"));
    ASSERT_TRUE(office);
    EXPECT_EQ(office->type, StoreCalendarType::local);
    EXPECT_EQ(office->source.sourceIdentifier, u"evolution:caldav-stub");
    settle([this] { return calendar(QStringLiteral("Office"))->allowsContentModifications; },
           "it can be written to");
    settle([this] { return events(*store).at(0).attendees->at(0).isCurrentUser; },
           "the user is found by the account's address");

    server.put("one", event("one", "DTSTART:20260303T110000Z\nSUMMARY:Moved\n"));
    server.put("weekly",
               event("weekly", "DTSTART:20260302T080000Z\nRRULE:FREQ=WEEKLY\nSUMMARY:Weekly\n") +
                   event("weekly", "RECURRENCE-ID:20260309T080000Z\nDTSTART:20260311T080000Z\n"
                                   "SUMMARY:Weekly\\, later\n"));
    refresh(account);
    settleTitles(ElementsAre("Weekly", "Moved", "Weekly, later"), "moved, and a series");

    server.put("weekly",
               event("weekly", "DTSTART:20260302T080000Z\nRRULE:FREQ=WEEKLY\nSUMMARY:Weekly\n") +
                   event("weekly", "RECURRENCE-ID:20260309T080000Z\nDTSTART:20260611T080000Z\n"
                                   "SUMMARY:Far away\n"));
    refresh(account);
    settleTitles(ElementsAre("Weekly", "Moved"), "an override left the window");

    server.put("one", event("one", "DTSTART:20260303T110000Z\nSUMMARY:Off\nSTATUS:CANCELLED\n"));
    refresh(account);
    settleTitles(ElementsAre("Weekly", "Off"), "cancelled");
    EXPECT_EQ(events(*store).at(1).status, StoreEventStatus::cancelled);

    server.put("weekly",
               event("weekly", "DTSTART:20260302T080000Z\nRRULE:FREQ=WEEKLY\nSUMMARY:Weekly\n"
                               "EXDATE:20260302T080000Z\n"));
    refresh(account);
    settleTitles(ElementsAre("Off", "Weekly"), "another occurrence was taken out");

    server.remove("one");
    refresh(account);
    settleTitles(ElementsAre("Weekly"), "deleted");
}

TEST_F(RemoteCalendars, KeepAnAccountWhoseServerStopsAndFollowItWhenItIsBack) {
    CalDavServer server(session.path(QStringLiteral("caldav")));
    server.put("one", event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"));
    writeAccount(server.port());
    put(event("local", "DTSTART:20260304T110000Z\nSUMMARY:Local\n"));
    begin();
    settleTitles(ElementsAre("One", "Local"), "what the server has");
    server.stop();
    put(event("local", "DTSTART:20260305T110000Z\nSUMMARY:Others go on\n"));
    settleTitles(ElementsAre("One", "Others go on"), "other calendars are as live as before");
    server.start();
    server.put("two", event("two", "DTSTART:20260303T110000Z\nSUMMARY:Two\n"));
    refresh(account);
    settleTitles(ElementsAre("One", "Two", "Others go on"), "the account is back");
}

TEST_F(RemoteCalendars, ShowAWebSubscriptionAsSuch) {
    WebServer server(session.path(QStringLiteral("www")));
    server.write("holidays.ics",
                 calendarText(event("h1", "DTSTART;VALUE=DATE:20260303\nSUMMARY:Holiday\n")));
    writeSubscription(server.port());
    begin();
    settleTitles(ElementsAre("Holiday"), "what the page has");
    const auto holidays = calendar(QStringLiteral("Holidays"));
    ASSERT_TRUE(holidays);
    EXPECT_EQ(holidays->type, StoreCalendarType::subscription);
    EXPECT_FALSE(holidays->allowsContentModifications);
    EXPECT_EQ(holidays->source.title, u"On The Web");
    EXPECT_TRUE(events(*store).at(0).isAllDay);

    server.write("holidays.ics",
                 calendarText(event("h2", "DTSTART;VALUE=DATE:20260305\nSUMMARY:Another\n")));
    refresh(web);
    settleTitles(ElementsAre("Another"), "what the page has become");

    server.write("holidays.ics",
                 calendarText(event("h2", "DTSTART;VALUE=DATE:20260305\nSUMMARY:Off\n"
                                          "STATUS:CANCELLED\n")));
    refresh(web);
    settleTitles(ElementsAre("Off"), "cancelled");
    EXPECT_EQ(events(*store).at(0).status, StoreEventStatus::cancelled);
}

TEST_F(RemoteCalendars, ShowBirthdaysOfTheAddressBook) {
    write({QStringLiteral("put-contact"),
           session.file("BEGIN:VCARD\r\nVERSION:3.0\r\nUID:anna\r\nFN:Anna Muster\r\n"
                        "N:Muster;Anna;;;\r\nBDAY:1990-03-05\r\nEND:VCARD\r\n")});
    begin();
    settleTitles(Contains(HasSubstr("Anna")), "the birthday");
    const auto birthdays = *events(*store).at(0).calendar;
    EXPECT_EQ(birthdays.type, StoreCalendarType::birthday);
    EXPECT_FALSE(birthdays.allowsContentModifications);
    EXPECT_TRUE(events(*store).at(0).isAllDay);
}

TEST_F(RemoteCalendars, SayOnceThatAServerCannotBeReached) {
    quint16 port = 0;
    {
        const WebServer server(session.path(QStringLiteral("www")));
        port = server.port();
    }
    writeSubscription(port);
    begin();
    settle([this] { return calendar(QStringLiteral("Holidays")).has_value(); }, "it is listed");
    EXPECT_THAT(titles(), IsEmpty());
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"));
    settleTitles(ElementsAre("One"), "other calendars go on");
}

} // namespace
} // namespace vantrel
