#include <fakes/CapturedLog.h>
#include <fakes/FullDisk.h>
#include <linux/userdefaults/JsonUserDefaults.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel {
namespace {

using fakes::CapturedLog;

const QString key = QStringLiteral("Vantrel.key");

class SettingsFileTest : public testing::Test {
protected:
    QString inFolder(const char *name) const { return folder.filePath(QLatin1String(name)); }

    void write(const QString &file, const QByteArray &text) {
        QFile target(file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(text);
    }

    static QByteArray read(const QString &file) {
        QFile source(file);
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("(no file)");
    }

    static mode_t modeOf(const QString &file) {
        struct stat status {};
        EXPECT_EQ(stat(QFile::encodeName(file).constData(), &status), 0);
        return status.st_mode & 07777;
    }

    qsizetype filesInFolder() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size();
    }

    static std::size_t loggedErrors() {
        for (const CapturedLog::Line &line : CapturedLog::lines()) {
            EXPECT_EQ(line.type, QtCriticalMsg);
            EXPECT_EQ(line.category, QStringLiteral("org.vantrel.Vantrel.UserDefaults"));
        }
        return CapturedLog::lines().size();
    }

    QTemporaryDir folder;
    const QString path = inFolder("settings.json");
    CapturedLog log;
};

TEST_F(SettingsFileTest, IsReadableByItsOwnerOnlyFromTheFirstSave) {
    const mode_t before = umask(0);
    JsonUserDefaults(path).setInteger(key, 1);
    umask(before);
    EXPECT_EQ(modeOf(path), 0600u);
}

TEST_F(SettingsFileTest, ClosesAFileThatWasOpenToOthers) {
    write(path, "{}");
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0644), 0);
    JsonUserDefaults(path).setInteger(key, 1);
    EXPECT_EQ(modeOf(path), 0600u);
}

TEST_F(SettingsFileTest, MakesItsFolderForItsOwnerOnly) {
    const QString deep = inFolder("config/Vantrel/settings.json");
    JsonUserDefaults(deep).setInteger(key, 1);
    EXPECT_EQ(JsonUserDefaults(deep).integer(key), 1);
    EXPECT_EQ(modeOf(inFolder("config/Vantrel")), 0700u);
}

TEST_F(SettingsFileTest, LeavesTheModeOfAFolderThatIsThere) {
    ASSERT_TRUE(QDir().mkdir(inFolder("Vantrel")));
    ASSERT_EQ(chmod(QFile::encodeName(inFolder("Vantrel")).constData(), 0755), 0);
    JsonUserDefaults(inFolder("Vantrel/settings.json")).setInteger(key, 1);
    EXPECT_EQ(modeOf(inFolder("Vantrel")), 0755u);
}

TEST_F(SettingsFileTest, ReplacesTheFileInOneStepAndLeavesNothingBeside) {
    write(path, "{}");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    JsonUserDefaults(path).setInteger(key, 1);
    EXPECT_EQ(old.readAll(), "{}");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("settings.json")});
}

class UnreadableTextTest : public SettingsFileTest,
                           public testing::WithParamInterface<const char *> {};

TEST_P(UnreadableTextTest, IsLoggedAndKeptAsideFromTheNextSave) {
    write(path, GetParam());
    JsonUserDefaults defaults(path);
    EXPECT_FALSE(defaults.hasObject(key));
    EXPECT_EQ(loggedErrors(), 1u);
    EXPECT_TRUE(CapturedLog::lines().front().text.contains(path));
    EXPECT_EQ(read(path), GetParam());
    EXPECT_EQ(filesInFolder(), 1);

    defaults.setInteger(key, 1);
    EXPECT_EQ(JsonUserDefaults(path).integer(key), 1);
    EXPECT_EQ(read(path + QStringLiteral(".unreadable")), GetParam());
    EXPECT_EQ(modeOf(path + QStringLiteral(".unreadable")), 0600u);
    EXPECT_EQ(loggedErrors(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Texts, UnreadableTextTest,
                         testing::Values("", "{", "[]", "3", "null", "{\"a\": 1,}", "{\"a\": 1} x",
                                         "\x01\xff\xfe", "// comment\n{}"));

TEST_F(SettingsFileTest, KeepsTheLatestUnreadableTextAside) {
    for (const char *text : {"first", "second"}) {
        write(path, text);
        JsonUserDefaults(path).setInteger(key, 1);
        EXPECT_EQ(read(path + QStringLiteral(".unreadable")), text);
    }
    JsonUserDefaults(path).setInteger(key, 2);
    EXPECT_EQ(read(path + QStringLiteral(".unreadable")), "second");
}

TEST_F(SettingsFileTest, MovesAsideWhatItCannotEvenOpen) {
    ASSERT_TRUE(QDir().mkdir(path));
    write(path + QStringLiteral("/inside"), "kept");
    JsonUserDefaults defaults(path);
    EXPECT_EQ(loggedErrors(), 1u);
    EXPECT_EQ(read(path + QStringLiteral("/inside")), "kept");
    defaults.setInteger(key, 1);
    EXPECT_EQ(JsonUserDefaults(path).integer(key), 1);
    EXPECT_EQ(read(path + QStringLiteral(".unreadable/inside")), "kept");
}

TEST_F(SettingsFileTest, DoesNotWaitForWhoeverWritesIntoAPipe) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    JsonUserDefaults defaults(path);
    EXPECT_FALSE(defaults.hasObject(key));
    EXPECT_EQ(loggedErrors(), 1u);
    defaults.setInteger(key, 1);
    EXPECT_EQ(JsonUserDefaults(path).integer(key), 1);
    EXPECT_EQ(loggedErrors(), 1u);
}

TEST_F(SettingsFileTest, DoesNotReadADeviceWithoutEnd) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path));
    EXPECT_FALSE(JsonUserDefaults(path).hasObject(key));
    EXPECT_EQ(loggedErrors(), 1u);
}

TEST_F(SettingsFileTest, MovesAsideAFileThatIsLargerThanAnySettings) {
    write(path, "{}");
    ASSERT_EQ(truncate(QFile::encodeName(path).constData(), 1'000'000'000), 0);
    JsonUserDefaults defaults(path);
    EXPECT_EQ(loggedErrors(), 1u);
    defaults.setInteger(key, 1);
    EXPECT_EQ(JsonUserDefaults(path).integer(key), 1);
    EXPECT_EQ(QFileInfo(path + QStringLiteral(".unreadable")).size(), 1'000'000'000);
}

TEST_F(SettingsFileTest, SavesNothingUntilItCanKeepAnUnreadableTextAside) {
    write(path, "broken");
    const QString inTheWay = path + QStringLiteral(".unreadable");
    ASSERT_TRUE(QDir().mkpath(inTheWay + QStringLiteral("/full")));
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, 1);
    defaults.setInteger(key, 2);
    EXPECT_EQ(loggedErrors(), 2u); // one for the load, one for the saves
    EXPECT_EQ(read(path), "broken");
    EXPECT_EQ(defaults.integer(key), 2);

    ASSERT_TRUE(QDir(inTheWay).removeRecursively());
    defaults.setInteger(key, 3);
    EXPECT_EQ(read(inTheWay), "broken");
    EXPECT_EQ(JsonUserDefaults(path).integer(key), 3);
}

/// The folder of the settings is a file, so that nothing can be saved, whoever runs the test.
class FailingSaveTest : public SettingsFileTest {
protected:
    FailingSaveTest() { write(inFolder("config"), "in the way"); }

    void clearTheWay() { ASSERT_TRUE(QFile::remove(inFolder("config"))); }
    void blockTheWay() {
        ASSERT_TRUE(QDir(inFolder("config")).removeRecursively());
        write(inFolder("config"), "in the way");
    }

    const QString blocked = inFolder("config/settings.json");
    JsonUserDefaults defaults{blocked};
};

TEST_F(FailingSaveTest, IsLoggedOnceAndLeavesTheValueStanding) {
    defaults.setInteger(key, 1);
    defaults.setInteger(key, 2);
    defaults.setInteger(key, 3);
    EXPECT_EQ(loggedErrors(), 1u);
    EXPECT_TRUE(CapturedLog::lines().front().text.contains(blocked));
    EXPECT_EQ(defaults.integer(key), 3);
}

TEST_F(FailingSaveTest, IsMadeGoodByTheNextSaveThatWorks) {
    defaults.setInteger(key, 1);
    defaults.setString(QStringLiteral("Vantrel.name"), QStringLiteral("x"));
    clearTheWay();
    defaults.setBoolean(QStringLiteral("Vantrel.last"), true);
    const JsonUserDefaults reloaded(blocked);
    EXPECT_EQ(reloaded.integer(key), 1);
    EXPECT_EQ(reloaded.string(QStringLiteral("Vantrel.name")), QStringLiteral("x"));
    EXPECT_TRUE(reloaded.boolean(QStringLiteral("Vantrel.last")));
}

TEST_F(FailingSaveTest, IsMadeGoodByAnAssignmentOfTheValueThatStandsAlready) {
    defaults.setInteger(key, 1);
    clearTheWay();
    defaults.setInteger(key, 1);
    EXPECT_EQ(JsonUserDefaults(blocked).integer(key), 1);
}

TEST_F(FailingSaveTest, IsLoggedAgainAfterASaveThatWorked) {
    defaults.setInteger(key, 1);
    clearTheWay();
    defaults.setInteger(key, 2);
    EXPECT_EQ(loggedErrors(), 1u);
    blockTheWay();
    defaults.setInteger(key, 3);
    defaults.setInteger(key, 4);
    EXPECT_EQ(loggedErrors(), 2u);
}

TEST_F(SettingsFileTest, LeavesTheOldTextStandingWhenTheDiskIsFull) {
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, 1);
    const QByteArray before = read(path);
    {
        const fakes::FullDisk full(100);
        defaults.setString(key, QString(50000, u'x'));
        defaults.setString(key, QString(500, u'x'));
    }
    EXPECT_EQ(read(path), before);
    EXPECT_EQ(loggedErrors(), 1u);
    EXPECT_EQ(filesInFolder(), 1);
    defaults.setInteger(QStringLiteral("Vantrel.other"), 2);
    EXPECT_EQ(JsonUserDefaults(path).string(key), QString(500, u'x'));
}

TEST_F(SettingsFileTest, WritesThroughALinkToItsTarget) {
    ASSERT_TRUE(QDir().mkdir(inFolder("dotfiles")));
    const QString target = inFolder("dotfiles/vantrel.json");
    write(target, R"({"Vantrel.key": 1})");
    ASSERT_TRUE(QFile::link(target, path));
    JsonUserDefaults defaults(path);
    EXPECT_EQ(defaults.integer(key), 1);
    defaults.setInteger(key, 2);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_EQ(QJsonDocument::fromJson(read(target)).object().value(key).toInt(), 2);
    EXPECT_EQ(QDir(inFolder("dotfiles")).entryList(QDir::Files).size(), 1);
}

TEST_F(SettingsFileTest, WritesThroughARelativeLinkAndALinkToALink) {
    ASSERT_TRUE(QDir().mkdir(inFolder("dotfiles")));
    ASSERT_EQ(symlink("dotfiles/second", QFile::encodeName(path).constData()), 0);
    ASSERT_EQ(symlink("third.json", QFile::encodeName(inFolder("dotfiles/second")).constData()), 0);
    write(inFolder("dotfiles/third.json"), R"({"Vantrel.key": 1})");
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, defaults.integer(key) + 1);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_TRUE(QFileInfo(inFolder("dotfiles/second")).isSymLink());
    EXPECT_EQ(JsonUserDefaults(inFolder("dotfiles/third.json")).integer(key), 2);
}

TEST_F(SettingsFileTest, MakesTheTargetOfALinkThatPointsNowhereYet) {
    ASSERT_TRUE(QDir().mkdir(inFolder("dotfiles")));
    ASSERT_TRUE(QFile::link(inFolder("dotfiles/vantrel.json"), path));
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, 1);
    EXPECT_EQ(loggedErrors(), 0u);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_EQ(JsonUserDefaults(inFolder("dotfiles/vantrel.json")).integer(key), 1);
}

TEST_F(SettingsFileTest, MovesALinkAsideThatLeadsToItself) {
    ASSERT_TRUE(QFile::link(path, path));
    JsonUserDefaults defaults(path);
    EXPECT_EQ(loggedErrors(), 1u);
    defaults.setInteger(key, 1);
    EXPECT_EQ(JsonUserDefaults(path).integer(key), 1);
}

} // namespace
} // namespace vantrel
