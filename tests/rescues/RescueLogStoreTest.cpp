#include <fakes/CapturedLog.h>
#include <fakes/FullDisk.h>
#include <rescues/RescueLogStore.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <limits>

namespace vantrel {
namespace {

using fakes::CapturedLog;

class RescueLogStoreTest : public testing::Test {
protected:
    void writeFile(const QByteArray &text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QByteArray fileText() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("rescues.json"));
    const RescueLogStore store{path};
    CapturedLog log;
};

const QString monday = QStringLiteral("2026-03-02");

void expectLoadFailure(const DayBuckets &loaded) {
    EXPECT_TRUE(loaded.empty());
    ASSERT_EQ(CapturedLog::lines().size(), 1u);
    const CapturedLog::Line &line = CapturedLog::lines().front();
    EXPECT_EQ(line.type, QtCriticalMsg);
    EXPECT_EQ(line.category, QStringLiteral("org.vantrel.Vantrel.RescueLog"));
    EXPECT_TRUE(line.text.startsWith(QStringLiteral("Failed to load rescue log; starting fresh: ")))
        << line.text.toStdString();
    EXPECT_GT(line.text.size(), 44);
}

TEST_F(RescueLogStoreTest, IsEmptyAndSilentWithoutAFile) {
    EXPECT_TRUE(store.load().empty());
    EXPECT_TRUE(
        RescueLogStore(folder.filePath(QStringLiteral("gone/rescues.json"))).load().empty());
    EXPECT_TRUE(CapturedLog::lines().empty());
    EXPECT_EQ(store.fileURL(), path);
}

TEST_F(RescueLogStoreTest, ReadsADay) {
    writeFile(R"({"2026-03-02": {"dismisses": 1, "pingsSent": 5, "rescuesFromPopover": 3,
                                 "rescuesFromTakeover": 2, "snoozes": 4}})");
    EXPECT_EQ(store.load(), (DayBuckets{{monday, DayBucket{2, 3, 4, 1, 5}}}));
    EXPECT_TRUE(CapturedLog::lines().empty());
}

TEST_F(RescueLogStoreTest, ReadsMissingPingsAsZero) {
    writeFile(R"({"2026-03-02": {"dismisses": 1, "rescuesFromPopover": 3,
                                 "rescuesFromTakeover": 2, "snoozes": 4}})");
    EXPECT_EQ(store.load(), (DayBuckets{{monday, DayBucket{2, 3, 4, 1, 0}}}));
    EXPECT_TRUE(CapturedLog::lines().empty());
}

TEST_F(RescueLogStoreTest, ReadsMembersThatItDoesNotKnow) {
    writeFile(R"({"2026-03-02": {"dismisses": 1, "pingsSent": 0, "rescuesFromPopover": 3,
                                 "rescuesFromTakeover": 2, "snoozes": 4, "later": "x"}})");
    EXPECT_EQ(store.load().size(), 1u);
    EXPECT_TRUE(CapturedLog::lines().empty());
}

class RequiredMemberTest : public RescueLogStoreTest,
                           public testing::WithParamInterface<const char *> {};

TEST_P(RequiredMemberTest, FailsTheWholeLoadWhenItIsMissing) {
    QByteArray day = R"({"dismisses": 1, "rescuesFromPopover": 3, "rescuesFromTakeover": 2,
                         "snoozes": 4})";
    day.replace(GetParam(), "other");
    writeFile(R"({"2026-03-01": {"dismisses": 1, "rescuesFromPopover": 3,
                                 "rescuesFromTakeover": 2, "snoozes": 4},
                  "2026-03-02": )" +
              day + "}");
    expectLoadFailure(store.load());
}

INSTANTIATE_TEST_SUITE_P(AllRequired, RequiredMemberTest,
                         testing::Values("rescuesFromTakeover", "rescuesFromPopover", "snoozes",
                                         "dismisses"));

class WrongCountTest : public RescueLogStoreTest, public testing::WithParamInterface<const char *> {
protected:
    static QByteArray dayWith(const char *snoozes, const char *pings) {
        return QByteArray(R"({"2026-03-02": {"dismisses": 0, "rescuesFromPopover": 0,)") +
               R"("rescuesFromTakeover": 0, "snoozes": )" + snoozes + R"(, "pingsSent": )" + pings +
               "}}";
    }
};

TEST_P(WrongCountTest, FailsTheWholeLoad) {
    writeFile(dayWith(GetParam(), "0"));
    expectLoadFailure(store.load());
}

TEST_P(WrongCountTest, FailsTheWholeLoadAsPingsToo) {
    writeFile(dayWith("0", GetParam()));
    expectLoadFailure(store.load());
}

INSTANTIATE_TEST_SUITE_P(Values, WrongCountTest,
                         testing::Values("1.5", "\"3\"", "1e30", "true", "null", "[1]", "{}",
                                         "9223372036854775808", "-1e19"));

class BadFileTest : public RescueLogStoreTest, public testing::WithParamInterface<const char *> {};

TEST_P(BadFileTest, StaysInPlaceUntilTheNextSave) {
    writeFile(GetParam());
    expectLoadFailure(store.load());
    EXPECT_EQ(fileText(), GetParam());
    store.save({{monday, DayBucket{1, 0, 0, 0, 0}}});
    EXPECT_EQ(store.load(), (DayBuckets{{monday, DayBucket{1, 0, 0, 0, 0}}}));
}

INSTANTIATE_TEST_SUITE_P(Texts, BadFileTest,
                         testing::Values("", "   ", "{", "[]", "null", "3", "{}{}", "\x01\xff\xfe",
                                         "{\"2026-03-02\": 3}", "{\"2026-03-02\": []}",
                                         "{\"2026-03-02\": null}", "{\"2026-03-02\": {}}",
                                         "{\"2026-03-02\": {\"snoozes\": 1,}}"));

TEST_F(RescueLogStoreTest, LogsAFileThatCannotBeRead) {
    ASSERT_TRUE(QDir().mkdir(path));
    expectLoadFailure(store.load());
}

TEST_F(RescueLogStoreTest, WritesAllFiveMembersSortedByName) {
    store.save({{QStringLiteral("2026-03-02"), DayBucket{2, 0, 1, 1, 0}},
                {QStringLiteral("2025-12-31"), DayBucket{0, 7, 0, 0, 9}}});
    EXPECT_EQ(fileText().simplified(),
              R"({ "2025-12-31": { "dismisses": 0, "pingsSent": 9, "rescuesFromPopover": 7, )"
              R"("rescuesFromTakeover": 0, "snoozes": 0 }, )"
              R"("2026-03-02": { "dismisses": 1, "pingsSent": 0, "rescuesFromPopover": 0, )"
              R"("rescuesFromTakeover": 2, "snoozes": 1 } })");
    EXPECT_GT(fileText().count('\n'), 10);
}

TEST_F(RescueLogStoreTest, KeepsCountsOf64BitsExactly) {
    constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    const DayBuckets byDay{
        {monday, DayBucket{highest, highest - 1, lowest, 9007199254740993, -9007199254740993}}};
    store.save(byDay);
    EXPECT_TRUE(fileText().contains("9223372036854775807"));
    EXPECT_EQ(store.load(), byDay);
}

TEST_F(RescueLogStoreTest, KeepsKeysThatAreNoDates) {
    const DayBuckets byDay{{QStringLiteral("someday \"soon\""), DayBucket{1, 0, 0, 0, 0}}};
    store.save(byDay);
    EXPECT_EQ(store.load(), byDay);
}

TEST_F(RescueLogStoreTest, WritesAFileForItsOwnerOnly) {
    writeFile("{}");
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                    QFileDevice::ReadGroup | QFileDevice::ReadOther);
    store.save({});
    const auto everybodyElse = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                               QFileDevice::ReadOther | QFileDevice::WriteOther;
    EXPECT_FALSE(QFileInfo(path).permissions() & everybodyElse);
    EXPECT_TRUE(QFileInfo(path).permissions() & QFileDevice::ReadOwner);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QFileInfo(path).fileName()});
}

TEST_F(RescueLogStoreTest, ReplacesTheFileInOneStep) {
    writeFile("{}");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    store.save({{monday, DayBucket{1, 0, 0, 0, 0}}});
    // Whoever had the file open goes on reading the old one whole: it was not written over.
    EXPECT_EQ(old.readAll(), "{}");
    EXPECT_EQ(store.load().size(), 1u);
}

TEST_F(RescueLogStoreTest, LeavesTheOldLogStandingWhenTheDiskIsFull) {
    const DayBuckets before{{monday, DayBucket{1, 0, 0, 0, 0}}};
    store.save(before);
    DayBuckets many;
    for (int day = 0; day < 1000; ++day)
        many[QString::number(day)] = DayBucket{};
    {
        const fakes::FullDisk full(200);
        store.save(many);
        store.save({{monday, DayBucket{2, 0, 0, 0, 0}}, {QString(200, u'x'), DayBucket{}}});
    }
    EXPECT_EQ(store.load(), before);
    EXPECT_EQ(CapturedLog::lines().size(), 2u);
}

TEST_F(RescueLogStoreTest, LogsASaveThatFails) {
    const RescueLogStore homeless(folder.filePath(QStringLiteral("gone/rescues.json")));
    homeless.save({});
    ASSERT_EQ(CapturedLog::lines().size(), 1u);
    EXPECT_EQ(CapturedLog::lines().front().type, QtCriticalMsg);
    EXPECT_EQ(CapturedLog::lines().front().category,
              QStringLiteral("org.vantrel.Vantrel.RescueLog"));
    EXPECT_TRUE(CapturedLog::lines().front().text.startsWith(
        QStringLiteral("Failed to save rescue log: ")));
    EXPECT_GT(CapturedLog::lines().front().text.size(), 28);
}

// What may lie in the place of the file

TEST_F(RescueLogStoreTest, DoesNotWaitForWhoeverWritesIntoAPipe) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    expectLoadFailure(store.load());
    store.save({{monday, DayBucket{1, 0, 0, 0, 0}}});
    EXPECT_EQ(store.load().size(), 1u);
}

TEST_F(RescueLogStoreTest, DoesNotReadADeviceWithoutEnd) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path));
    expectLoadFailure(store.load());
}

TEST_F(RescueLogStoreTest, DoesNotReadAFileThatIsLargerThanAnyLog) {
    writeFile("{}");
    ASSERT_EQ(truncate(QFile::encodeName(path).constData(), 1'000'000'000), 0);
    expectLoadFailure(store.load());
    store.save({{monday, DayBucket{1, 0, 0, 0, 0}}});
    EXPECT_EQ(store.load().size(), 1u);
}

TEST_F(RescueLogStoreTest, LeavesAFolderInItsPlaceAlone) {
    ASSERT_TRUE(QDir().mkdir(path));
    expectLoadFailure(store.load());
    store.save({{monday, DayBucket{1, 0, 0, 0, 0}}});
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(CapturedLog::lines().size(), 2u);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TEST_F(RescueLogStoreTest, FollowsALinkOfTheUsersOwn) {
    const QString elsewhere = folder.filePath(QStringLiteral("elsewhere.json"));
    ASSERT_TRUE(QFile::link(elsewhere, path));
    EXPECT_TRUE(store.load().empty());
    store.save({{monday, DayBucket{1, 0, 0, 0, 0}}});
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_TRUE(QFileInfo(elsewhere).isFile());
    EXPECT_EQ(store.load().size(), 1u);
    EXPECT_TRUE(CapturedLog::lines().empty());
}

TEST_F(RescueLogStoreTest, DoesNotFollowALinkOfAnotherUser) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can make a link in another user's name";
    const QString precious = folder.filePath(QStringLiteral("precious"));
    ASSERT_TRUE(QFile::link(precious, path));
    constexpr uid_t somebodyElse = 4242;
    ASSERT_EQ(lchown(QFile::encodeName(path).constData(), somebodyElse, somebodyElse), 0);
    store.save({{monday, DayBucket{1, 0, 0, 0, 0}}});
    EXPECT_FALSE(QFileInfo::exists(precious));
    EXPECT_EQ(CapturedLog::lines().size(), 1u);
    QFile file(precious);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{}");
    file.close();
    CapturedLog::lines().clear();
    expectLoadFailure(store.load());
}

/// Sets an environment variable for as long as it lives.
class Environment {
public:
    Environment(const char *name, const QString &value)
        : m_name(name), m_before(qgetenv(name)), m_wasSet(qEnvironmentVariableIsSet(name)) {
        qputenv(name, value.toUtf8());
    }
    ~Environment() {
        if (m_wasSet)
            qputenv(m_name, m_before);
        else
            qunsetenv(m_name);
    }
    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;

private:
    const char *m_name;
    QByteArray m_before;
    bool m_wasSet;
};

TEST_F(RescueLogStoreTest, LiesInTheDataFolderWhichItMakes) {
    const QString data = folder.filePath(QStringLiteral("deep/data"));
    const Environment environment("XDG_DATA_HOME", data);
    EXPECT_EQ(RescueLogStore::defaultFileURL(), data + QStringLiteral("/Vantrel/rescues.json"));
    EXPECT_TRUE(QDir(data + QStringLiteral("/Vantrel")).exists());
    EXPECT_EQ(RescueLogStore::defaultFileURL(), data + QStringLiteral("/Vantrel/rescues.json"));
    EXPECT_TRUE(CapturedLog::lines().empty());
}

TEST_F(RescueLogStoreTest, FallsBackToTheTemporaryFolderWhenItsOwnCannotBeMade) {
    writeFile("a file where the data folder should be");
    const Environment data("XDG_DATA_HOME", path);
    const Environment temporary("TMPDIR", folder.path());
    EXPECT_EQ(RescueLogStore::defaultFileURL(),
              folder.filePath(QStringLiteral("Vantrel-rescues.json")));
    ASSERT_EQ(CapturedLog::lines().size(), 1u);
    EXPECT_EQ(CapturedLog::lines().front().type, QtCriticalMsg);
    EXPECT_TRUE(CapturedLog::lines().front().text.startsWith(
        QStringLiteral("Application Support unavailable; falling back to tmp: ")))
        << CapturedLog::lines().front().text.toStdString();
}

TEST_F(RescueLogStoreTest, FallsBackWhenAFileStandsInPlaceOfItsFolder) {
    QFile file(folder.filePath(QStringLiteral("Vantrel")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const Environment data("XDG_DATA_HOME", folder.path());
    const Environment temporary("TMPDIR", folder.path());
    EXPECT_EQ(RescueLogStore::defaultFileURL(),
              folder.filePath(QStringLiteral("Vantrel-rescues.json")));
    EXPECT_EQ(CapturedLog::lines().size(), 1u);
}

} // namespace
} // namespace vantrel
