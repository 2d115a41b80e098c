#include <fakes/ManualMainQueue.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <linux/softwareupdater/InstallationProbe.h>
#include <session/Waiting.h>

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <optional>

namespace vantrel {
namespace {

class InstallationProbeTest : public testing::Test {
protected:
    /// A package system's program, as a script.
    InstallationProbe::Query query(PackageSystem system, const QByteArray &script) {
        const QString path = m_folder.filePath(QStringLiteral("query%1").arg(++m_count));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script + "\n");
        file.close();
        EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        return {system, path, {QStringLiteral("--search")}};
    }

    Installation answer(const std::vector<InstallationProbe::Query> &queries) {
        InstallationProbe probe(m_queue, queries);
        std::optional<Installation> found;
        probe.start(QStringLiteral("/usr/bin/vantrel"),
                    [&](const Installation &installation) { found = installation; });
        EXPECT_FALSE(found) << "answered within the call";
        EXPECT_TRUE(tests::waitUntil([&] { return found.has_value(); }));
        return found.value_or(Installation{PackageSystem::none, QStringLiteral("no answer")});
    }

private:
    QTemporaryDir m_folder;
    int m_count = 0;
    QtMainQueue m_queue;
};

TEST_F(InstallationProbeTest, TakesTheNameAtTheHeadOfTheAnswer) {
    EXPECT_EQ(answer({query(PackageSystem::debian, "echo vantrel: $2")}),
              (Installation{PackageSystem::debian, QStringLiteral("vantrel")}));
    EXPECT_EQ(answer({query(PackageSystem::debian, "echo vantrel:amd64: $2; echo other: $2")}),
              (Installation{PackageSystem::debian, QStringLiteral("vantrel")}));
    EXPECT_EQ(answer({query(PackageSystem::rpm, "echo vantrel")}),
              (Installation{PackageSystem::rpm, QStringLiteral("vantrel")}));
}

TEST_F(InstallationProbeTest, HandsTheFileToTheProgram) {
    EXPECT_EQ(answer({query(PackageSystem::debian, "echo \"$1=$2\"")}).package,
              QStringLiteral("--search=/usr/bin/vantrel"));
}

TEST_F(InstallationProbeTest, AsksTheNextWhenOneOwnsNothing) {
    EXPECT_EQ(answer({query(PackageSystem::debian, "echo debian; exit 1"),
                      query(PackageSystem::pacman, "echo vantrel")}),
              (Installation{PackageSystem::pacman, QStringLiteral("vantrel")}));
}

TEST_F(InstallationProbeTest, PassesOverWhatIsNotThereIsKilledOrSaysNothing) {
    const InstallationProbe::Query missing{
        PackageSystem::rpm, QStringLiteral("/nonexistent/rpm"), {}};
    EXPECT_EQ(
        answer({missing, query(PackageSystem::debian, "echo dead; kill -9 $$"),
                query(PackageSystem::rpm, "true"), query(PackageSystem::pacman, "echo vantrel")}),
        (Installation{PackageSystem::pacman, QStringLiteral("vantrel")}));
}

TEST_F(InstallationProbeTest, FindsNothingWhereNobodyOwnsTheFile) {
    EXPECT_EQ(answer({}), Installation{});
    EXPECT_EQ(answer({query(PackageSystem::debian, "exit 1")}), Installation{});
}

TEST_F(InstallationProbeTest, TheMachinesOwnSystemsOwnNoFileThatIsNotThere) {
    EXPECT_EQ(answer(InstallationProbe::usualQueries()), Installation{});
}

TEST(InstallationProbeTimeTest, GoesOnWithoutAProgramThatHangs) {
    fakes::ManualMainQueue queue{Instant{}};
    InstallationProbe probe(
        queue, {{PackageSystem::debian, QStringLiteral("/bin/sleep"), {QStringLiteral("1000")}}});
    std::optional<Installation> found;
    // The path is no number, but sleep is told of one before it: it would end with an error. So
    // the file is a number as well.
    probe.start(QStringLiteral("1000"),
                [&](const Installation &installation) { found = installation; });
    queue.advance(Seconds{0.0});
    queue.advance(Seconds{4.9});
    EXPECT_FALSE(found);
    queue.advance(Seconds{0.2});
    EXPECT_EQ(found, Installation{});
}

TEST(InstallationProbeTimeTest, ForgetsTheFirstQuestionOverASecondOne) {
    fakes::ManualMainQueue queue{Instant{}};
    InstallationProbe probe(queue, {});
    int first = 0;
    int second = 0;
    probe.start(QStringLiteral("/a"), [&](const Installation &) { ++first; });
    probe.start(QStringLiteral("/b"), [&](const Installation &) { ++second; });
    queue.advance(Seconds{1.0});
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

} // namespace
} // namespace vantrel
