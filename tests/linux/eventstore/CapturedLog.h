#pragma once

#include <string>
#include <vector>

namespace vantrel::tests {

/// Takes the log's lines as long as it lives, from all threads. One at a time.
class CapturedLog {
public:
    CapturedLog();
    ~CapturedLog();
    CapturedLog(const CapturedLog &) = delete;
    CapturedLog &operator=(const CapturedLog &) = delete;

    [[nodiscard]] std::vector<std::string> lines() const;

    /// The lines in one, for failure messages and for looking for a part.
    [[nodiscard]] std::string text() const;

    /// Whether one line holds both.
    [[nodiscard]] bool has(const std::string &one, const std::string &other) const;

    void clear();
};

} // namespace vantrel::tests
