#include <linux/mainqueue/QtMainQueue.h>
#include <linux/userdefaults/JsonUserDefaults.h>
#include <session/Waiting.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace vantrel {
namespace {

const QString mine = QStringLiteral("mine");
const QString others = QStringLiteral("others");

class FollowedFileTest : public testing::Test {
protected:
    FollowedFileTest() {
        write(R"({"mine": 1, "others": 1})");
        follow();
    }

    void follow() {
        defaults = std::make_unique<JsonUserDefaults>(path);
        defaults->follow(queue);
        m_changes = defaults->changedOutside.subscribe([this] { ++changes; });
    }

    /// In place, as some editors do.
    void write(const QByteArray &text) const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    /// By another file that takes its name, as the other editors do.
    void replace(const QByteArray &text) const {
        const QString part = folder.filePath(QStringLiteral("part"));
        QFile file(part);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        EXPECT_EQ(
            std::rename(QFile::encodeName(part).constData(), QFile::encodeName(path).constData()),
            0);
    }

    bool waitFor(std::int64_t value) const {
        return tests::waitUntil([&] { return defaults->integer(others) == value; });
    }

    QJsonObject fileObject() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                              : QJsonObject();
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    QtMainQueue queue;
    std::unique_ptr<JsonUserDefaults> defaults;
    int changes = 0;

private:
    Subscription m_changes;
};

TEST_F(FollowedFileTest, TakesOverWhatOthersWriteHoweverTheyDo) {
    write(R"({"mine": 1, "others": 2})");
    EXPECT_TRUE(waitFor(2));
    replace(R"({"mine": 1, "others": 3})");
    EXPECT_TRUE(waitFor(3));
    replace(R"({"mine": 1, "others": 4})");
    EXPECT_TRUE(waitFor(4));
    write(R"({"mine": 1, "others": 5})");
    EXPECT_TRUE(waitFor(5));
    EXPECT_EQ(changes, 4);
}

TEST_F(FollowedFileTest, TellsOfNoChangeOfItsOwn) {
    defaults->setInteger(mine, 7);
    write(R"({"mine": 7, "others": 9})");
    EXPECT_TRUE(waitFor(9));
    EXPECT_EQ(changes, 1);
}

TEST_F(FollowedFileTest, LosesNothingThatOthersWroteJustBefore) {
    replace(R"({"mine": 1, "others": 2})");
    defaults->setInteger(mine, 7);
    EXPECT_EQ(fileObject(), (QJsonObject{{mine, 7}, {others, 2}}));
    EXPECT_EQ(defaults->integer(others), 2);
    EXPECT_EQ(changes, 1);
}

TEST_F(FollowedFileTest, HoldsWhatItKnowsWhileTheFileIsBrokenOrGone) {
    write(R"({"mine": 1, "oth)");
    // Whether it was looked at by then or not, what was known holds.
    bool isQuiet = false;
    const ScheduledWork quiet = queue.after(Seconds{0.5}, [&] { isQuiet = true; });
    ASSERT_TRUE(tests::waitUntil([&] { return isQuiet; }));
    EXPECT_EQ(defaults->integer(others), 1);
    ASSERT_TRUE(QFile::remove(path));
    replace(R"({"mine": 1, "others": 6})");
    EXPECT_TRUE(waitFor(6));
    EXPECT_EQ(changes, 1);
}

TEST_F(FollowedFileTest, KeepsABrokenFileAsideBeforeItIsReplaced) {
    write(R"({"mine": 1, "oth)");
    defaults->setInteger(mine, 7);
    EXPECT_EQ(fileObject(), (QJsonObject{{mine, 7}, {others, 1}}));
    EXPECT_TRUE(QFile::exists(path + QStringLiteral(".unreadable")));
    EXPECT_EQ(changes, 0);
}

TEST_F(FollowedFileTest, FollowsAFileBehindALink) {
    const QString target = folder.filePath(QStringLiteral("dotfiles.json"));
    ASSERT_TRUE(QDir().rename(path, target));
    ASSERT_TRUE(QFile::link(target, path));
    follow();
    write(R"({"mine": 1, "others": 8})");
    EXPECT_TRUE(waitFor(8));
}

} // namespace
} // namespace vantrel
