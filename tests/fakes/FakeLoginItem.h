#pragma once

#include <platform/LoginItem.h>

namespace vantrel::fakes {

/// Starts nothing at login. A call that succeeds leaves the status in `afterRegistering`, or no
/// registration; with a `refusal` each call fails.
class FakeLoginItem : public LoginItem {
public:
    Status current = Status::notRegistered;
    Status afterRegistering = Status::enabled;
    std::optional<QString> refusal;
    int registrations = 0;
    int unregistrations = 0;

    [[nodiscard]] Status status() const override { return current; }

    [[nodiscard]] std::optional<QString> registerItem() override {
        ++registrations;
        if (!refusal)
            current = afterRegistering;
        return refusal;
    }

    [[nodiscard]] std::optional<QString> unregisterItem() override {
        ++unregistrations;
        if (!refusal)
            current = Status::notRegistered;
        return refusal;
    }
};

} // namespace vantrel::fakes
