#include "ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrel::tests {

ChildProcess::ChildProcess(const std::vector<std::string> &commandLine, int keep) {
    std::vector<char *> arguments;
    for (const std::string &argument : commandLine)
        arguments.push_back(const_cast<char *>(argument.c_str()));
    arguments.push_back(nullptr);

    m_pid = fork();
    if (m_pid != 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    if (keep >= 0)
        fcntl(keep, F_SETFD, 0);
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

ChildProcess::~ChildProcess() {
    terminate();
}

int ChildProcess::terminate() {
    if (m_pid > 0)
        kill(m_pid, SIGTERM);
    return wait();
}

int ChildProcess::wait() {
    if (m_pid <= 0)
        return -1;
    int status = 0;
    waitpid(m_pid, &status, 0);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int run(const std::vector<std::string> &commandLine) {
    return ChildProcess(commandLine).wait();
}

} // namespace vantrel::tests
