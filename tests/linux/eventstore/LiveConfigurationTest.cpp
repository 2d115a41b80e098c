#include "LiveStore.h"

#include <linux/eventstore/folders/FolderDescription.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// A store on a profile whose calendars.json is edited while it runs.
class LiveConfigurationTest : public LiveStore {
protected:
    LiveConfigurationTest() {
        for (const char *name : {"one", "two"})
            files.write(QString::fromLatin1(name) + QStringLiteral("/a.ics"),
                        calendarText(event(
                            name, "DTSTART:20260302T110000Z\nSUMMARY:" + QByteArray(name) + "\n")));
        files.write(QStringLiteral("invited/a.ics"),
                    calendarText(event("i", "DTSTART:20260302T110000Z\nSUMMARY:invited\n"
                                            "ATTENDEE;PARTSTAT=DECLINED:mailto:me@example.com\n")));
    }

    void beginWithProfile() {
        begin(std::make_unique<LocalEventStore>(
            queue, StoreConfiguration::ofUser(files.path(QStringLiteral("profile"))),
            [this] { return fakes::calendarIn(zone); }, StoreAccess::granted()));
    }

    QByteArray folders(const QStringList &names) const {
        QStringList quoted;
        for (const QString &name : names)
            quoted.append(u'"' + files.path(name) + u'"');
        return "{\"folders\": [" + quoted.join(u',').toUtf8() + "]}";
    }

    void edit(const QByteArray &text) const {
        replace(QStringLiteral("profile/calendars.json"), text);
    }

    /// Lets time pass until the store answers with those events.
    template <typename Matcher>
    void expectTitles(const Matcher &matcher) {
        settle([&] {
            queue.advance(Seconds{0.2});
            return ::testing::Value(titles(*live), matcher);
        });
        EXPECT_THAT(titles(*live), matcher);
    }
};

TEST_F(LiveConfigurationTest, FoldersComeAndGo) {
    files.write(QStringLiteral("profile/calendars.json"), folders({QStringLiteral("one")}));
    beginWithProfile();
    EXPECT_THAT(titles(*live), ElementsAre("one"));
    edit(folders({QStringLiteral("one"), QStringLiteral("two")}));
    expectTitles(ElementsAre("one", "two"));
    edit(folders({QStringLiteral("two")}));
    expectTitles(ElementsAre("two"));
    ASSERT_TRUE(QFile::remove(files.path(QStringLiteral("profile/calendars.json"))));
    expectTitles(IsEmpty());
    EXPECT_FALSE(log.has("calendars.json", "")) << log.text();
}

TEST_F(LiveConfigurationTest, AFolderThatCameIsWatchedAsWell) {
    QDir().mkpath(files.path(QStringLiteral("profile")));
    beginWithProfile();
    edit(folders({QStringLiteral("one")}));
    expectTitles(ElementsAre("one"));
    replace(QStringLiteral("one/b.ics"), calendarText(noonEvent("added")));
    expectTitles(ElementsAre("one", "added"));
}

TEST_F(LiveConfigurationTest, TheFilesFoldersMayComeLater) {
    beginWithProfile();
    EXPECT_THAT(live->calendars(), IsEmpty());
    files.write(QStringLiteral("profile/calendars.json"), folders({QStringLiteral("two")}));
    expectTitles(ElementsAre("two"));
    edit(folders({QStringLiteral("one")}));
    expectTitles(ElementsAre("one"));
}

TEST_F(LiveConfigurationTest, TheCalendarHomeStays) {
    files.write(QStringLiteral("profile/calendars/home/a.ics"), calendarText(noonEvent("home")));
    beginWithProfile();
    edit(folders({QStringLiteral("one")}));
    expectTitles(ElementsAre("home", "one"));
    edit("{}");
    expectTitles(ElementsAre("home"));
}

TEST_F(LiveConfigurationTest, ABrokenFileChangesNothingUntilItIsWhole) {
    files.write(QStringLiteral("profile/calendars.json"), folders({QStringLiteral("one")}));
    beginWithProfile();
    const QByteArray next = folders({QStringLiteral("two")});
    for (const QByteArray &broken : {next.left(next.size() / 2), QByteArray(), QByteArray("[]")}) {
        log.clear();
        edit(broken);
        settle([this] {
            queue.advance(Seconds{0.2});
            return log.has("calendars.json", "not read");
        });
        EXPECT_TRUE(log.has("stay as they were", "")) << log.text();
        settleQuiet();
        EXPECT_THAT(titles(*live), ElementsAre("one"));
    }
    edit(next);
    expectTitles(ElementsAre("two"));
}

TEST_F(LiveConfigurationTest, AddressesAreTakenAtOnce) {
    files.write(QStringLiteral("profile/calendars.json"), folders({QStringLiteral("invited")}));
    beginWithProfile();
    const auto isUser = [this] { return events(*live).front().attendees->front().isCurrentUser; };
    EXPECT_FALSE(isUser());
    QByteArray text = folders({QStringLiteral("invited")});
    text.chop(1);
    edit(text + R"(, "addresses": ["Me@example.com"]})");
    settle([&] {
        queue.advance(Seconds{0.2});
        return isUser();
    });
    edit(folders({QStringLiteral("invited")}));
    settle([&] {
        queue.advance(Seconds{0.2});
        return !isUser();
    });
}

TEST_F(LiveConfigurationTest, AFileBehindALinkIsFollowed) {
    files.write(QStringLiteral("dotfiles/calendars.json"), folders({QStringLiteral("one")}));
    QDir().mkpath(files.path(QStringLiteral("profile")));
    ASSERT_TRUE(QFile::link(files.path(QStringLiteral("dotfiles/calendars.json")),
                            files.path(QStringLiteral("profile/calendars.json"))));
    beginWithProfile();
    EXPECT_THAT(titles(*live), ElementsAre("one"));
    replace(QStringLiteral("dotfiles/calendars.json"), folders({QStringLiteral("two")}));
    expectTitles(ElementsAre("two"));
}

TEST_F(LiveConfigurationTest, AFileBehindALinkIsFollowedWhenItsFolderIsAnother) {
    files.write(QStringLiteral("dotfiles/calendars.json"), folders({QStringLiteral("one")}));
    files.write(QStringLiteral("other/calendars.json"), folders({QStringLiteral("two")}));
    QDir().mkpath(files.path(QStringLiteral("profile")));
    ASSERT_TRUE(QFile::link(files.path(QStringLiteral("dotfiles/calendars.json")),
                            files.path(QStringLiteral("profile/calendars.json"))));
    beginWithProfile();
    EXPECT_THAT(titles(*live), ElementsAre("one"));
    QDir scratch(files.path());
    ASSERT_TRUE(scratch.rename(QStringLiteral("dotfiles"), QStringLiteral("former")));
    ASSERT_TRUE(scratch.rename(QStringLiteral("other"), QStringLiteral("dotfiles")));
    expectTitles(ElementsAre("two"));
    replace(QStringLiteral("dotfiles/calendars.json"), folders({QStringLiteral("one")}));
    expectTitles(ElementsAre("one"));
}

TEST_F(LiveConfigurationTest, AFileBehindALinkThatLedNowhereAtTheStartIsReadOnceItComes) {
    QDir().mkpath(files.path(QStringLiteral("profile")));
    ASSERT_TRUE(QFile::link(files.path(QStringLiteral("disk/dotfiles/calendars.json")),
                            files.path(QStringLiteral("profile/calendars.json"))));
    beginWithProfile();
    EXPECT_THAT(titles(*live), IsEmpty());
    files.write(QStringLiteral("disk/dotfiles/calendars.json"), folders({QStringLiteral("one")}));
    expectTitles(ElementsAre("one"));
    EXPECT_TRUE(live->hasAllCalendars());
}

TEST_F(LiveConfigurationTest, AFileBehindALinkInAFolderOnTheWayIsFollowed) {
    files.write(QStringLiteral("first/calendars.json"), folders({QStringLiteral("one")}));
    files.write(QStringLiteral("second/calendars.json"), folders({QStringLiteral("two")}));
    ASSERT_TRUE(
        QFile::link(files.path(QStringLiteral("first")), files.path(QStringLiteral("profile"))));
    beginWithProfile();
    EXPECT_THAT(titles(*live), ElementsAre("one"));
    ASSERT_TRUE(
        QFile::link(files.path(QStringLiteral("second")), files.path(QStringLiteral("next"))));
    ASSERT_EQ(::rename(qPrintable(files.path(QStringLiteral("next"))),
                       qPrintable(files.path(QStringLiteral("profile")))),
              0);
    expectTitles(ElementsAre("two"));
}

/// Calendars that are out of sight because it is not known, or no longer said, where they lie. What
/// counts as deleted drops out of the user's selection for good.
class UnnamedFolderTest : public LiveConfigurationTest {
protected:
    UnnamedFolderTest() {
        files.write(QStringLiteral("profile/calendars/home/a.ics"),
                    calendarText(noonEvent("home")));
        files.write(QStringLiteral("profile/calendars/work/a.ics"),
                    calendarText(noonEvent("work")));
    }

    QString identifier(const char *name) const {
        return identifierOfPath(QFile::encodeName(files.path(QString::fromLatin1(name))));
    }

    void linkToDotfiles() const {
        ASSERT_TRUE(QFile::link(files.path(QStringLiteral("dotfiles/calendars.json")),
                                files.path(QStringLiteral("profile/calendars.json"))));
    }
};

TEST_F(UnnamedFolderTest, IsNotDeletedWhileTheFileIsUnlinkedAndWrittenAgain) {
    edit(folders({QStringLiteral("one")}));
    beginWithProfile();
    expectTitles(UnorderedElementsAre("home", "work", "one"));
    ASSERT_TRUE(QFile::remove(files.path(QStringLiteral("profile/calendars.json"))));
    expectTitles(UnorderedElementsAre("home", "work"));
    settleQuiet();
    EXPECT_FALSE(live->isCalendarDeleted(identifier("one")));
    edit(folders({QStringLiteral("one")}));
    expectTitles(UnorderedElementsAre("home", "work", "one"));
}

TEST_F(UnnamedFolderTest, IsNotDeletedWhenItIsTakenOutOfTheFileAndPutBack) {
    edit(folders({QStringLiteral("one"), QStringLiteral("two")}));
    beginWithProfile();
    edit(folders({QStringLiteral("two")}));
    expectTitles(UnorderedElementsAre("home", "work", "two"));
    EXPECT_FALSE(live->isCalendarDeleted(identifier("one")));
    edit(folders({QStringLiteral("one"), QStringLiteral("two")}));
    expectTitles(UnorderedElementsAre("home", "work", "one", "two"));
}

TEST_F(UnnamedFolderTest, StaysAsLongAsTheFileIsBehindALinkThatLeadsNowhere) {
    files.write(QStringLiteral("dotfiles/calendars.json"), folders({QStringLiteral("one")}));
    linkToDotfiles();
    beginWithProfile();
    expectTitles(UnorderedElementsAre("home", "work", "one"));
    ASSERT_TRUE(QFile::remove(files.path(QStringLiteral("dotfiles/calendars.json"))));
    settle([this] {
        queue.advance(Seconds{0.2});
        return log.has("calendars.json", "not read");
    });
    settleQuiet();
    EXPECT_THAT(titles(*live), UnorderedElementsAre("home", "work", "one"));
    EXPECT_FALSE(live->isCalendarDeleted(identifier("one")));
}

TEST_F(UnnamedFolderTest, IsNotDeletedAtAStartWithALinkThatLeadsNowhere) {
    linkToDotfiles();
    beginWithProfile();
    expectTitles(UnorderedElementsAre("home", "work"));
    EXPECT_FALSE(live->isCalendarDeleted(identifier("one")));
    EXPECT_FALSE(live->hasAllCalendars());
}

TEST_F(UnnamedFolderTest, IsNotDeletedAtAStartWithoutTheFile) {
    beginWithProfile();
    expectTitles(UnorderedElementsAre("home", "work"));
    EXPECT_FALSE(live->isCalendarDeleted(identifier("one")));
}

TEST_F(UnnamedFolderTest, IsNotDeletedWhenItIsNamedByItselfAndOutOfReach) {
    edit(folders({QStringLiteral("profile/calendars/work")}));
    beginWithProfile();
    expectTitles(UnorderedElementsAre("home", "work"));
    ASSERT_TRUE(QDir(files.path(QStringLiteral("profile/calendars/work"))).removeRecursively());
    expectTitles(ElementsAre("home"));
    EXPECT_FALSE(live->isCalendarDeleted(identifier("profile/calendars/work")));
    EXPECT_FALSE(live->hasAllCalendars());
}

TEST_F(UnnamedFolderTest, IsToldFromACalendarThatIsDeletedWhereOthersAre) {
    beginWithProfile();
    expectTitles(UnorderedElementsAre("home", "work"));
    ASSERT_TRUE(QDir(files.path(QStringLiteral("profile/calendars/work"))).removeRecursively());
    expectTitles(ElementsAre("home"));
    EXPECT_FALSE(live->isCalendarDeleted(identifier("profile/calendars/work")));
    settle([this] {
        queue.advance(Seconds{1.0});
        return live->isCalendarDeleted(identifier("profile/calendars/work"));
    });
    EXPECT_FALSE(live->isCalendarDeleted(identifier("profile/calendars/home")));
}

TEST_F(LiveConfigurationTest, OtherFilesBesideItAreNone) {
    files.write(QStringLiteral("profile/calendars.json"), folders({QStringLiteral("one")}));
    beginWithProfile();
    settleQuiet();
    const int before = changes;
    replace(QStringLiteral("profile/settings.json"), "{}");
    replace(QStringLiteral("profile/access.json"), "{}");
    settleQuiet();
    EXPECT_EQ(changes, before);
}

} // namespace
} // namespace vantrel
