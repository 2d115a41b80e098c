#pragma once

#include <QProcess>

namespace vantrel::tests {

/// An X server of the tests' own, named in the environment.
class Display {
public:
    Display();
    ~Display();
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

private:
    QProcess m_server;
};

} // namespace vantrel::tests
