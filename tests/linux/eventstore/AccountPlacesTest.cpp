#include "CalendarFiles.h"

#include <linux/eventstore/evolution/AccountPlaces.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AccountPlacesTest : public testing::Test {
protected:
    void write(const char *uid, const QByteArray &text) const {
        files.write(QLatin1String(uid) + QStringLiteral(".source"), text);
    }

    std::vector<std::string> places() const {
        std::vector<std::string> found;
        for (const CalendarPlace &place : accountPlaces(files.path()))
            found.push_back((place.name + u'|' + place.detail).toStdString());
        return found;
    }

    CalendarFiles files;
};

TEST_F(AccountPlacesTest, NamesAccountsAndCalendarsThatBelongToNone) {
    write("a", "[Data Source]\nDisplayName=mara@example.com\nEnabled=true\nParent=\n"
               "\n[Collection]\nBackendName=google\nIdentity=mara@example.com\n");
    write("b",
          "[Data Source]\nDisplayName=Of the account\nParent=a\n[Calendar]\nBackendName=caldav\n");
    write("c", "[Data Source]\nDisplayName=Holidays\nParent=webcal-stub\n"
               "[Calendar]\nBackendName=webcal\nColor=#62a0ea\n");
    write("d", "[Data Source]\nDisplayName=Contacts\nParent=local-stub\n[Address Book]\n");
    EXPECT_THAT(places(), ElementsAre("Holidays|Subscription", "mara@example.com|Google"));
}

TEST_F(AccountPlacesTest, LeavesOutWhatIsSwitchedOff) {
    write("a", "[Data Source]\nDisplayName=Off\nEnabled=false\n[Collection]\nBackendName=ews\n");
    write("b", "[Data Source]\nDisplayName=Mail only\n[Collection]\nBackendName=ews\n"
               "CalendarEnabled=false\n");
    EXPECT_THAT(places(), IsEmpty());
}

TEST_F(AccountPlacesTest, TakesTheNameAsItIsAndNoTranslation) {
    write("a", "[Data Source]\nDisplayName[de]=Persönlich\nDisplayName=Personal\n"
               "Parent=local-stub\n[Calendar]\nBackendName=local\n");
    EXPECT_THAT(places(), ElementsAre("Personal|Evolution"));
}

TEST_F(AccountPlacesTest, BearsFilesWithoutSense) {
    write("a", "");
    write("b", QByteArray("\0\xff[[[==\n]\n[", 12));
    write("c", "DisplayName=No group\n[Calendar]\n");
    write("d", QByteArray(1'000'000, 'x'));
    write("e", "[Data Source]\nDisplayName=Unknown\n[Collection]\nBackendName=other\n");
    EXPECT_THAT(places(), ElementsAre("Unknown|other"));
}

TEST_F(AccountPlacesTest, FindsNothingWithoutTheFolder) {
    EXPECT_THAT(accountPlaces(files.path(QStringLiteral("none"))), IsEmpty());
}

} // namespace
} // namespace vantrel
