#include "KernelClock.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace {

bool isStandingIn = false;
int programsEnd = -1;
int ownEnd = -1;

} // namespace

// The program's own definitions come before those of the C library.
extern "C" {

int timerfd_create(clockid_t clock, int flags) noexcept {
    if (!isStandingIn)
        return static_cast<int>(::syscall(SYS_timerfd_create, clock, flags));
    int ends[2] = {-1, -1};
    // An empty datagram is read as no bytes, which is how a timer answers that was cancelled.
    if (::socketpair(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends) != 0)
        return -1;
    programsEnd = ends[0];
    ownEnd = ends[1];
    return programsEnd;
}

int timerfd_settime(int timer, int flags, const itimerspec *deadline, itimerspec *before) noexcept {
    if (timer == programsEnd)
        return 0;
    return static_cast<int>(::syscall(SYS_timerfd_settime, timer, flags, deadline, before));
}
}

namespace vantrel::tests {

KernelClock::KernelClock() {
    isStandingIn = true;
}

KernelClock::~KernelClock() {
    isStandingIn = false;
    ::close(ownEnd);
    programsEnd = -1;
    ownEnd = -1;
}

void KernelClock::announceJump() const {
    ASSERT_GE(ownEnd, 0) << "nobody asked the kernel";
    ASSERT_EQ(::send(ownEnd, "", 0, 0), 0);
}

} // namespace vantrel::tests
