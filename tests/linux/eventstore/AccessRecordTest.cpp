#include "CalendarFiles.h"
#include "CapturedLog.h"

#include <fakes/FullDisk.h>
#include <linux/eventstore/AccessRecord.h>

#include <QFileInfo>

#include <sys/stat.h>

namespace vantrel {
namespace {

using namespace tests;

class AccessRecordTest : public ::testing::Test {
protected:
    AccessRecord record() const {
        return {files.path(QStringLiteral("config/Vantrel/access.json")),
                {files.path(QStringLiteral("xdg/one/policy.json")),
                 files.path(QStringLiteral("xdg/two/policy.json"))}};
    }

    void writeAnswer(const QByteArray &text) const {
        files.write(QStringLiteral("config/Vantrel/access.json"), text);
    }

    void writePolicy(const QByteArray &text) const {
        files.write(QStringLiteral("xdg/two/policy.json"), text);
    }

    CapturedLog log;
    CalendarFiles files;
};

TEST_F(AccessRecordTest, WithoutAFileNobodyHasBeenAsked) {
    EXPECT_EQ(record().read(), StoreAuthorization::notDetermined);
    EXPECT_EQ(log.text(), "");
    EXPECT_FALSE(QFileInfo::exists(files.path(QStringLiteral("config"))));
}

TEST_F(AccessRecordTest, ReadsTheAnswersThatItKeeps) {
    record().keep(true);
    EXPECT_EQ(record().read(), StoreAuthorization::fullAccess);
    record().keep(false);
    EXPECT_EQ(record().read(), StoreAuthorization::denied);
    record().keep(true);
    EXPECT_EQ(record().read(), StoreAuthorization::fullAccess);
    EXPECT_EQ(log.text(), "");
}

TEST_F(AccessRecordTest, KeepsTheAnswerForItsOwnerAlone) {
    writeAnswer("{}");
    ASSERT_EQ(::chmod(qPrintable(files.path(QStringLiteral("config/Vantrel/access.json"))), 0644),
              0);
    record().keep(false);
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(files.path(QStringLiteral("config/Vantrel/access.json"))), &status),
              0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(AccessRecordTest, LeavesNothingBesideTheFile) {
    record().keep(true);
    record().keep(false);
    EXPECT_EQ(QDir(files.path(QStringLiteral("config/Vantrel"))).entryList(QDir::Files),
              QStringList{QStringLiteral("access.json")});
}

TEST_F(AccessRecordTest, ReadsAnAnswerThatAPersonWrote) {
    writeAnswer(R"({"calendarAccess": "granted"})");
    EXPECT_EQ(record().read(), StoreAuthorization::fullAccess);
    writeAnswer(R"({"calendarAccess": "denied", "more": 1})");
    EXPECT_EQ(record().read(), StoreAuthorization::denied);
}

TEST_F(AccessRecordTest, AnAnswerWithoutSenseIsNoneAndIsLogged) {
    for (const char *text :
         {"", "{", "[]", "{}", R"({"calendarAccess": true})", R"({"calendarAccess": "Granted"})",
          R"({"calendarAccess": "restricted"})", R"({"calendaraccess": "granted"})", "\xff"}) {
        log.clear();
        writeAnswer(text);
        EXPECT_EQ(record().read(), StoreAuthorization::notDetermined) << text;
        EXPECT_EQ(log.lines().size(), 1U) << text;
        EXPECT_TRUE(log.has("access.json", "")) << log.text();
    }
}

TEST_F(AccessRecordTest, AFolderInPlaceOfTheFileIsNoAnswer) {
    QDir().mkpath(files.path(QStringLiteral("config/Vantrel/access.json")));
    EXPECT_EQ(record().read(), StoreAuthorization::notDetermined);
    EXPECT_TRUE(log.has("access.json", "not read")) << log.text();
}

TEST_F(AccessRecordTest, APolicyOutweighsEveryAnswer) {
    writePolicy(R"({"calendarAccess": "restricted"})");
    EXPECT_EQ(record().read(), StoreAuthorization::restricted);
    record().keep(true);
    EXPECT_EQ(record().read(), StoreAuthorization::restricted);
}

TEST_F(AccessRecordTest, ASlipInTheNameOpensNothing) {
    record().keep(true);
    writePolicy(R"({"calendaraccess": "restricted"})");
    EXPECT_EQ(record().read(), StoreAuthorization::restricted);
    EXPECT_TRUE(log.has("policy.json", "\"calendaraccess\" is not known")) << log.text();
}

TEST_F(AccessRecordTest, APolicyThatSaysNothingOpensNothing) {
    record().keep(true);
    writePolicy("{}");
    EXPECT_EQ(record().read(), StoreAuthorization::restricted);
    EXPECT_TRUE(log.has("policy.json", "calendarAccess")) << log.text();
}

TEST_F(AccessRecordTest, APolicyWithoutSenseOpensNothing) {
    record().keep(true);
    for (const char *text :
         {"", "{", "[]", R"({"calendarAccess": "restrictd"})", R"({"calendarAccess": null})"}) {
        log.clear();
        writePolicy(text);
        EXPECT_EQ(record().read(), StoreAuthorization::restricted) << text;
        EXPECT_TRUE(log.has("policy.json", "")) << text;
    }
}

TEST_F(AccessRecordTest, LogsAnAnswerThatCannotBeKept) {
    files.write(QStringLiteral("config"), "a file where the folder should be");
    record().keep(true);
    EXPECT_TRUE(log.has("access.json", "the answer is not kept")) << log.text();
}

TEST_F(AccessRecordTest, KeepsTheAnswerBeforeWhereTheDiskIsFull) {
    record().keep(false);
    {
        const fakes::FullDisk full(4);
        record().keep(true);
    }
    EXPECT_EQ(record().read(), StoreAuthorization::denied);
    EXPECT_TRUE(log.has("access.json", "the answer is not kept")) << log.text();
}

TEST_F(AccessRecordTest, LiesInTheProfileWhenThereIsOne) {
    AccessRecord::ofUser(files.path()).keep(true);
    EXPECT_TRUE(QFileInfo::exists(files.path(QStringLiteral("access.json"))));
}

/// The environment's folders, as they were at the end.
class AccessRecordOfUserTest : public AccessRecordTest {
protected:
    AccessRecordOfUserTest() {
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
            m_before.emplace_back(name, qgetenv(name));
        qputenv("XDG_CONFIG_HOME", files.path(QStringLiteral("home")).toLocal8Bit());
        qputenv("XDG_CONFIG_DIRS",
                (files.path(QStringLiteral("first")) + u':' + files.path(QStringLiteral("second")))
                    .toLocal8Bit());
    }

    ~AccessRecordOfUserTest() override {
        for (const auto &[name, value] : m_before) {
            if (value.isNull())
                qunsetenv(name);
            else
                qputenv(name, value);
        }
    }

private:
    std::vector<std::pair<const char *, QByteArray>> m_before;
};

TEST_F(AccessRecordOfUserTest, ReadsTheUsersAnswer) {
    files.write(QStringLiteral("home/Vantrel/access.json"), R"({"calendarAccess": "granted"})");
    EXPECT_EQ(AccessRecord::ofUser().read(), StoreAuthorization::fullAccess);
}

TEST_F(AccessRecordOfUserTest, ReadsThePolicyInEachFolderOfTheSystem) {
    files.write(QStringLiteral("home/Vantrel/access.json"), R"({"calendarAccess": "granted"})");
    files.write(QStringLiteral("second/Vantrel/policy.json"),
                R"({"calendarAccess": "restricted"})");
    EXPECT_EQ(AccessRecord::ofUser().read(), StoreAuthorization::restricted);
    EXPECT_EQ(AccessRecord::ofUser(files.path(QStringLiteral("home/Vantrel"))).read(),
              StoreAuthorization::restricted);
}

TEST_F(AccessRecordOfUserTest, ReadsThePolicyOfTheSystemWhateverTheEnvironmentSays) {
    const QString system = files.path(QStringLiteral("system"));
    files.write(QStringLiteral("home/Vantrel/access.json"), R"({"calendarAccess": "granted"})");
    EXPECT_EQ(AccessRecord::ofUser({}, system).read(), StoreAuthorization::fullAccess);
    files.write(QStringLiteral("system/Vantrel/policy.json"),
                R"({"calendarAccess": "restricted"})");
    EXPECT_EQ(AccessRecord::ofUser({}, system).read(), StoreAuthorization::restricted);
    EXPECT_EQ(AccessRecord::ofUser(files.path(QStringLiteral("home/Vantrel")), system).read(),
              StoreAuthorization::restricted);
    qputenv("XDG_CONFIG_HOME", system.toLocal8Bit());
    EXPECT_EQ(AccessRecord::ofUser({}, system).read(), StoreAuthorization::restricted);
    qputenv("XDG_CONFIG_DIRS", system.toLocal8Bit());
    EXPECT_EQ(AccessRecord::ofUser({}, system).read(), StoreAuthorization::restricted);
}

TEST_F(AccessRecordOfUserTest, TakesNoPolicyFromTheUser) {
    files.write(QStringLiteral("home/Vantrel/policy.json"), R"({"calendarAccess": "restricted"})");
    EXPECT_EQ(AccessRecord::ofUser().read(), StoreAuthorization::notDetermined);
}

} // namespace
} // namespace vantrel
