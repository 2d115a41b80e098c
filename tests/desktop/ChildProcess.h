#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace vantrel::tests {

/// A program that runs beside the test and is ended with this object; also when
/// the test dies.
class ChildProcess {
public:
    /// `program` is looked up in PATH. Its output is dropped. A file descriptor
    /// to `keep` stays open in it.
    explicit ChildProcess(const std::vector<std::string> &commandLine, int keep = -1);
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;
    ~ChildProcess();

    /// Asks it to end, waits until it has, and answers its exit code (-1 for a
    /// signal's victim).
    int terminate();

    /// Waits until it ends by itself.
    int wait();

private:
    pid_t m_pid = -1;
};

/// Runs a program to its end; answers its exit code.
int run(const std::vector<std::string> &commandLine);

} // namespace vantrel::tests
