#include <linux/termination/TerminationSignals.h>
#include <session/Waiting.h>

#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>

namespace vantrel::tests {

class TerminationSignalsTest : public testing::TestWithParam<int> {
protected:
    /// What started the tests may have had them ignored.
    TerminationSignalsTest() { std::signal(GetParam(), SIG_DFL); }

    static bool isDefault(int kind) {
        struct sigaction action {};
        ::sigaction(kind, nullptr, &action);
        return action.sa_handler == SIG_DFL;
    }
};

TEST_P(TerminationSignalsTest, AreToldFromTheEventLoopAndNotBefore) {
    int told = 0;
    const TerminationSignals termination([&] { ++told; });
    ::raise(GetParam());
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(waitUntil([&] { return told > 0; }));
    EXPECT_EQ(told, 1);
}

TEST_P(TerminationSignalsTest, EndTheProgramAtTheSecondTime) {
    const TerminationSignals termination([] {});
    EXPECT_FALSE(isDefault(GetParam()));
    ::raise(GetParam());
    EXPECT_TRUE(isDefault(GetParam()));
}

TEST_P(TerminationSignalsTest, EndAProgramThatThisOneStarts) {
    const TerminationSignals termination([] {});
    QProcess program;
    program.start(QStringLiteral("/bin/cat"), QStringList());
    ASSERT_TRUE(program.waitForStarted());
    ::kill(static_cast<pid_t>(program.processId()), GetParam());
    EXPECT_TRUE(waitUntil([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(program.exitCode(), GetParam());
}

TEST_P(TerminationSignalsTest, AreLeftAsTheyWereOnceNobodyListens) {
    {
        const TerminationSignals termination([] {});
    }
    EXPECT_TRUE(isDefault(GetParam()));
}

TEST_P(TerminationSignalsTest, StayIgnoredWhereTheProgramWasStartedSo) {
    std::signal(GetParam(), SIG_IGN);
    int told = 0;
    {
        const TerminationSignals termination([&] { ++told; });
        ::raise(GetParam());
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(told, 0);
    EXPECT_FALSE(isDefault(GetParam()));
    std::signal(GetParam(), SIG_DFL);
}

INSTANTIATE_TEST_SUITE_P(Kinds, TerminationSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

} // namespace vantrel::tests
