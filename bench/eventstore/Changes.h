#pragma once

#include "Measurement.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace vantrel::bench {

/// Changes that another process makes, and how long it takes until they are heard of.
class Changes {
public:
    /// `writer` is the rest of a command line of this program, to which a number is added; it makes
    /// the change and calls `printTaken`.
    explicit Changes(QStringList writer) : m_writer(std::move(writer)) {}

    /// Has the next change made, waits until the condition holds as well, and answers when the
    /// change had been made.
    Clock::time_point make(const std::function<bool()> &isHeard);

    /// The moment, for `make`. To be called by the writer.
    static void printTaken();

private:
    const QStringList m_writer;
    int m_number = 0;
};

[[nodiscard]] double millisecondsBetween(Clock::time_point start, Clock::time_point end);

/// Prints median, least and most of times in milliseconds, of which there are some.
void printTimes(const char *what, std::vector<double> times);

} // namespace vantrel::bench
