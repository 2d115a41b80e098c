#include "CalendarFiles.h"

#include <linux/eventstore/files/FolderWatch.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <gmock/gmock.h>

#include <semaphore>
#include <thread>

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
    const std::shared_ptr<WatchDescriptor> descriptor = std::make_shared<WatchDescriptor>();
    FolderWatch watch{[this](const auto &events) {
                          for (const auto &event : *events) {
                              names.push_back(event.name.toStdString());
                              folders.push_back(event.folder.toStdString());
                          }
                      },
                      descriptor};
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

/// Another watch on the same descriptor.
class SharedDescriptorTest : public FolderWatchTest {
protected:
    std::unique_ptr<FolderWatch> otherWatch() {
        return std::make_unique<FolderWatch>(
            [this](const auto &events) {
                for (const auto &event : *events)
                    otherNames.push_back(event.name.toStdString());
            },
            descriptor);
    }

    std::vector<std::string> otherNames;
    std::unique_ptr<FolderWatch> other = otherWatch();
};

TEST_F(SharedDescriptorTest, TellsEachWatchOfItsOwnNames) {
    watch.add(folder(), "a");
    other->add(folder(), "b");
    touch("a");
    touch("b");
    settle();
    EXPECT_THAT(names, Contains("a"));
    EXPECT_THAT(names, Not(Contains("b")));
    EXPECT_THAT(otherNames, Contains("b"));
    EXPECT_THAT(otherNames, Not(Contains("a")));
}

TEST_F(SharedDescriptorTest, GoesOnForOneWatchWhenAnotherLetsTheFolderGo) {
    other->add(folder());
    watch.add(folder());
    other->sweep();
    other->sweep();
    touch("a");
    settle();
    EXPECT_THAT(names, Contains("a"));
    EXPECT_THAT(otherNames, IsEmpty());
}

TEST_F(SharedDescriptorTest, GoesOnForOneWatchWhenAnotherIsGone) {
    other->add(folder());
    watch.add(folder());
    other.reset();
    touch("a");
    settle();
    EXPECT_THAT(names, Contains("a"));
}

TEST_F(SharedDescriptorTest, LosesNoFolderThatIsAddedWhileAnotherLetsItGo) {
    constexpr int rounds = 300;
    // In steps, so that the system's list of what happened does not overflow.
    std::counting_semaphore<> step{0};
    std::thread letting([this, &step] {
        for (int round = 0; round < rounds; ++round) {
            step.acquire();
            for (int turn = 0; turn < 10; ++turn) {
                other->add(folder());
                other->sweep();
                other->sweep();
            }
        }
    });
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        step.release();
        for (int turn = 0; turn < 10; ++turn) {
            watch.sweep();
            watch.sweep();
            watch.add(folder());
        }
        // A file that was not there before: the kernel itself may lose the writing of one that was,
        // right after two threads added its folder.
        const std::string name = "a" + std::to_string(round);
        names.clear();
        touch(name.c_str());
        settle();
        EXPECT_THAT(names, Contains(name));
    }
    step.release(rounds);
    letting.join();
}

TEST_F(FolderWatchTest, LeavesAFolderAloneThatIsNotThere) {
    EXPECT_TRUE(watch.add(folder() + "/none"));
    settle();
}

} // namespace
} // namespace vantrel
