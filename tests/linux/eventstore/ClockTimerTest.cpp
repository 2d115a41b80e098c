#include "LiveStore.h"

#include <linux/eventstore/ClockWatch.h>

#include <gmock/gmock.h>
#include <sys/eventfd.h>

#include <cerrno>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr int calledOffWhenSet = TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET;

/// A watch on a timer of the test's, since a test cannot set the clock: a counter stands for it,
/// which can be read once the test has raised it, and each reading ends as the test says.
class ClockTimerTest : public LiveStore {
protected:
    static constexpr int expired = 0; ///< Instead of an error.

    void begin() {
        TimerCalls calls;
        calls.create = [this](int clock, int) {
            EXPECT_EQ(clock, CLOCK_REALTIME);
            return timer = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
        };
        calls.arm = [this](int, int flags, const itimerspec *deadline, itimerspec *) {
            armings.push_back(flags);
            EXPECT_GT(deadline->it_value.tv_sec, 0);
            errno = EINVAL;
            return canBeArmed ? 0 : -1;
        };
        calls.read = [this](int descriptor, void *bytes, std::size_t size) {
            const auto length = ::read(descriptor, bytes, size);
            errno = error;
            return error == expired ? length : ssize_t{-1};
        };
        watch = std::make_unique<ClockWatch>(
            queue, [this] { ++reports; }, QFile::encodeName(files.path()), calls);
    }

    void tell(int how) {
        error = how;
        const std::uint64_t one = 1;
        ASSERT_EQ(::write(timer, &one, sizeof one), ssize_t{sizeof one});
        settleQuiet();
    }

    int timer = -1;
    int error = expired;
    bool canBeArmed = true;
    std::vector<int> armings;
    int reports = 0;
    std::unique_ptr<ClockWatch> watch;
};

TEST_F(ClockTimerTest, TellsOnceThatTheClockWasSetAndGoesOn) {
    begin();
    settleQuiet();
    EXPECT_EQ(reports, 0);
    EXPECT_THAT(armings, ElementsAre(calledOffWhenSet));
    tell(ECANCELED);
    EXPECT_EQ(reports, 1);
    EXPECT_THAT(armings, ElementsAre(calledOffWhenSet, calledOffWhenSet));
    tell(ECANCELED);
    EXPECT_EQ(reports, 2);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(ClockTimerTest, SaysNothingWhereThereWasNothingToRead) {
    begin();
    tell(EAGAIN);
    EXPECT_EQ(reports, 0);
    EXPECT_THAT(armings, SizeIs(1));
}

TEST_F(ClockTimerTest, ComparesTheClocksWhereTheTimerCannotBeSetAgain) {
    begin();
    canBeArmed = false;
    tell(ECANCELED);
    EXPECT_EQ(reports, 1);
    EXPECT_TRUE(log.has("does not tell when the clock is set", "Invalid argument")) << log.text();
    queue.jumpWallTo(queue.now() + Seconds{3600.0});
    queue.advance(Seconds{30.0});
    EXPECT_EQ(reports, 2);
}

TEST_F(ClockTimerTest, ComparesTheClocksOnceTheTimersTimeHasCome) {
    begin();
    tell(expired);
    EXPECT_EQ(reports, 1);
    EXPECT_TRUE(log.has("does not tell", "far future")) << log.text();
}

/// What the kernel says of the timers that this process holds.
std::vector<std::string> timersOfProcess() {
    std::vector<std::string> timers;
    QDir folder(QStringLiteral("/proc/self/fdinfo"));
    for (const QString &name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const std::string text = file.readAll().toStdString();
        if (text.find("settime flags") != std::string::npos)
            timers.push_back(text);
    }
    return timers;
}

TEST_F(ClockTimerTest, TheKernelHoldsATimerThatIsCalledOffWhenTheClockIsSet) {
    ASSERT_THAT(timersOfProcess(), IsEmpty());
    const ClockWatch real(queue, [this] { ++reports; });
    const auto timers = timersOfProcess();
    ASSERT_THAT(timers, SizeIs(1));
    EXPECT_THAT(timers[0], HasSubstr("clockid: 0\n")); // CLOCK_REALTIME
    EXPECT_THAT(timers[0], HasSubstr("settime flags: 03\n"));
    static_assert(calledOffWhenSet == 03);
    EXPECT_THAT(log.lines(), IsEmpty());
}

} // namespace
} // namespace vantrel
