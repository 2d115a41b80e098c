#pragma once

#include <platform/Workspace.h>

#include <vector>

namespace vantrel::fakes {

/// Opens nothing and remembers what it was asked to open.
class RecordingWorkspace : public Workspace {
public:
    struct Opened {
        QString url;
        std::optional<ApplicationId> application; ///< Empty: the handler registered for the scheme.

        bool operator==(const Opened &) const = default;
    };

    std::vector<Opened> opened;
    std::optional<ApplicationId> browser; ///< What `applicationToOpen` answers.

    void open(const Url &url) override { opened.push_back({url.absoluteString(), std::nullopt}); }

    [[nodiscard]] std::optional<ApplicationId> applicationToOpen(const Url &) const override {
        return browser;
    }

    void open(const Url &url, const ApplicationId &application) override {
        opened.push_back({url.absoluteString(), application});
    }
};

} // namespace vantrel::fakes
