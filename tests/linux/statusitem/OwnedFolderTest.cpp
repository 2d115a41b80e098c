#include <linux/statusitem/OwnedFolder.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrel::tests {

class OwnedFolderTest : public testing::Test {
protected:
    /// The folder of a process that ended without a word.
    QString leftByTheKilled() {
        const QStringList before = folders();
        const pid_t killed = ::fork();
        if (killed == 0) {
            const OwnedFolder folder(place.path(), kind);
            QFile file(folder.filePath(QStringLiteral("icon")));
            ::_exit(folder.isValid() && file.open(QIODevice::WriteOnly) ? 0 : 1);
        }
        int status = -1;
        ::waitpid(killed, &status, 0);
        EXPECT_EQ(status, 0);
        for (const QString &name : folders()) {
            if (!before.contains(name))
                return name;
        }
        ADD_FAILURE() << "nothing was left";
        return {};
    }

    [[nodiscard]] QStringList folders() const {
        return QDir(place.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    }

    const QString kind = QStringLiteral("kind-");
    const QTemporaryDir place;
};

TEST_F(OwnedFolderTest, GoesWithItsOwner) {
    {
        const OwnedFolder folder(place.path(), kind);
        EXPECT_TRUE(folder.isValid());
        EXPECT_EQ(folders().size(), 1);
    }
    EXPECT_EQ(folders(), QStringList());
}

TEST_F(OwnedFolderTest, IsRemovedByTheNextOwnerOnceItsOwnerWasKilled) {
    const QString left = leftByTheKilled();
    const OwnedFolder folder(place.path(), kind);
    EXPECT_FALSE(folders().contains(left));
    EXPECT_EQ(folders(), QStringList{QDir(folder.path()).dirName()});
}

TEST_F(OwnedFolderTest, IsLeftToAnOwnerThatLives) {
    const OwnedFolder first(place.path(), kind);
    const OwnedFolder second(place.path(), kind);
    EXPECT_TRUE(QDir(first.path()).exists());
    EXPECT_TRUE(QDir(second.path()).exists());
}

TEST_F(OwnedFolderTest, IsLeftWhereItDoesNotShowThatItIsOne) {
    ASSERT_TRUE(QDir(place.path()).mkdir(QStringLiteral("kind-in-the-making")));
    QFile file(place.filePath(QStringLiteral("kind-file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const OwnedFolder folder(place.path(), kind);
    EXPECT_TRUE(folders().contains(QStringLiteral("kind-in-the-making")));
    EXPECT_TRUE(file.exists());
}

TEST_F(OwnedFolderTest, IsNotLookedForBehindALink) {
    const QString left = leftByTheKilled();
    const QString elsewhere = place.filePath(QStringLiteral("elsewhere"));
    ASSERT_TRUE(QDir(place.path()).rename(left, elsewhere));
    ASSERT_TRUE(QFile::link(elsewhere, place.filePath(QStringLiteral("kind-link"))));
    const OwnedFolder folder(place.path(), kind);
    EXPECT_TRUE(QFile::exists(elsewhere + QStringLiteral("/icon")));
}

} // namespace vantrel::tests
