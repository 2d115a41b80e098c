#include "CalendarFiles.h"

#include <linux/eventstore/files/FolderWatch.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr int patience = 20'000; // milliseconds until a test gives up

class FolderWatchTest : public testing::Test {
protected:
    FolderWatchTest() { QDir().mkpath(files.path(QStringLiteral("folder"))); }

    QByteArray folder() const { return QFile::encodeName(files.path(QStringLiteral("folder"))); }

    void touch(const char *name) const {
        files.write(QStringLiteral("folder/") + QLatin1String(name), "x");
    }

    /// Writes a last file, which counts in any case, and waits until that is told.
    void settle() {
        watch.add(folder(), "last");
        touch("last");
        const QDeadlineTimer deadline(patience);
        while (!testing::Value(names, Contains("last"))) {
            ASSERT_FALSE(deadline.hasExpired());
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    CalendarFiles files;
    std::vector<std::string> names;
    std::vector<std::string> folders;
    FolderWatch watch{[this](const auto &events) {
        for (const auto &event : *events) {
            names.push_back(event.name.toStdString());
            folders.push_back(event.folder.toStdString());
        }
    }};
};

TEST_F(FolderWatchTest, TellsOfTheNamesThatCountAlone) {
    watch.add(folder(), "a");
    touch("a");
    touch("b");
    settle();
    EXPECT_THAT(names, Contains("a"));
    EXPECT_THAT(names, Not(Contains("b")));
}

TEST_F(FolderWatchTest, TellsOfANameThatIsNotAddedAgainYet) {
    watch.add(folder(), "a");
    watch.add(folder(), "b");
    watch.sweep();
    watch.add(folder(), "a");
    touch("b");
    settle();
    EXPECT_THAT(names, Contains("b"));
}

TEST_F(FolderWatchTest, TellsOfAWholeFolderThatIsAddedAgainForANameAtFirst) {
    watch.add(folder());
    watch.sweep();
    watch.add(folder(), "a");
    touch("b");
    settle();
    EXPECT_THAT(names, Contains("b"));
}

TEST_F(FolderWatchTest, ForgetsANameThatWasNotAddedAgain) {
    watch.add(folder(), "a");
    watch.add(folder(), "b");
    watch.sweep();
    watch.add(folder(), "a");
    watch.sweep();
    touch("b");
    settle();
    EXPECT_THAT(names, Not(Contains("b")));
}

TEST_F(FolderWatchTest, ForgetsAFolderThatWasNotAddedAgain) {
    QDir().mkpath(files.path(QStringLiteral("other")));
    watch.add(QFile::encodeName(files.path(QStringLiteral("other"))));
    watch.sweep();
    watch.sweep();
    files.write(QStringLiteral("other/b"), "x");
    settle();
    EXPECT_THAT(names, Not(Contains("b")));
}

TEST_F(FolderWatchTest, TellsOfAFolderByEachOfItsPaths) {
    ASSERT_TRUE(
        QFile::link(files.path(QStringLiteral("folder")), files.path(QStringLiteral("link"))));
    const QByteArray link = QFile::encodeName(files.path(QStringLiteral("link")));
    watch.add(folder());
    watch.add(link, "a");
    touch("a");
    settle();
    EXPECT_THAT(folders, Contains(folder().toStdString()));
    EXPECT_THAT(folders, Contains(link.toStdString()));
}

TEST_F(FolderWatchTest, LeavesAFolderAloneThatIsNotThere) {
    EXPECT_TRUE(watch.add(folder() + "/none"));
    settle();
}

} // namespace
} // namespace vantrel
