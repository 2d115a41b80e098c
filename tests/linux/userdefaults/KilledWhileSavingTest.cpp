#include <linux/userdefaults/JsonUserDefaults.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <random>

namespace vantrel {
namespace {

const QString key = QStringLiteral("Vantrel.key");
const QString otherKey = QStringLiteral("Other.program");

/// A text that belongs to one number, and whose length jumps about from one number to the next.
QString fillerFor(std::int64_t number) {
    const auto length = static_cast<qsizetype>(number * 7919 % 40000);
    return QString(length, QChar(u'a' + static_cast<char16_t>(number % 26)));
}

/// 0 when nothing is stored yet.
std::int64_t numberIn(const std::optional<QStringList> &stored) {
    return stored ? stored->at(0).toLongLong() : 0;
}

/// Saves one number after the other until it is killed, and reports each that is on the disk.
[[noreturn]] void saveForEver(const QString &path, int progress) {
    JsonUserDefaults defaults(path);
    for (std::int64_t number = numberIn(defaults.stringArray(key)) + 1;; ++number) {
        defaults.setStringArray(key, {QString::number(number), fillerFor(number)});
        if (write(progress, &number, sizeof number) != sizeof number)
            _exit(1);
    }
}

class Child {
public:
    explicit Child(const QString &path) {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        m_progress = ends[0];
        m_process = fork();
        if (m_process == 0) {
            close(ends[0]);
            saveForEver(path, ends[1]);
        }
        close(ends[1]);
    }
    ~Child() { close(m_progress); }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    /// Waits for the next report; false once there are no more.
    bool readReport(std::int64_t &number) {
        return read(m_progress, &number, sizeof number) == sizeof number;
    }

    void killNow() {
        EXPECT_EQ(kill(m_process, SIGKILL), 0);
        int status = 0;
        EXPECT_EQ(waitpid(m_process, &status, 0), m_process);
        EXPECT_TRUE(WIFSIGNALED(status));
    }

private:
    int m_progress = -1;
    pid_t m_process = -1;
};

QJsonObject readWhole(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_TRUE(document.isObject());
    return document.object();
}

TEST(KilledWhileSaving, FindsTheOldTextOrTheNewOneEachTime) {
    constexpr std::uint32_t seed = 20260302;
    std::printf("seed %u\n", seed);
    std::mt19937 random(seed);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    JsonUserDefaults(path).setString(otherKey, QStringLiteral("kept"));

    int oneAhead = 0;
    for (int round = 0; round < 200; ++round) {
        Child child(path);
        std::int64_t reported = 0;
        const int reports = std::uniform_int_distribution(1, 4)(random);
        for (int report = 0; report < reports; ++report)
            ASSERT_TRUE(child.readReport(reported));
        // Work of random length, about a save long at most: the kill lands anywhere in one.
        volatile int spin = std::uniform_int_distribution(0, 500000)(random);
        while (spin > 0)
            spin = spin - 1;
        child.killNow();
        while (child.readReport(reported)) {
        }

        const QJsonObject object = readWhole(path);
        const QJsonArray stored = object.value(key).toArray();
        ASSERT_EQ(stored.size(), 2);
        const std::int64_t number = stored.at(0).toString().toLongLong();
        // What was reported is there; one more may be, whose report the kill cut off.
        ASSERT_GE(number, reported);
        ASSERT_LE(number, reported + 1);
        ASSERT_EQ(stored.at(1).toString(), fillerFor(number));
        ASSERT_EQ(object.value(otherKey).toString(), QStringLiteral("kept"));
        oneAhead += number > reported;
    }
    const auto left = QDir(folder.path()).entryList(QDir::Files).size() - 1;
    std::printf("killed between save and report: %d; left beside the file: %d\n", oneAhead,
                static_cast<int>(left));
}

} // namespace
} // namespace vantrel
