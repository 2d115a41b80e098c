#pragma once

namespace vantrel {

/// The system's way of bringing the program up to date. Main thread only.
class SoftwareUpdater {
public:
    virtual ~SoftwareUpdater() = default;

    /// Shows the user where updates of this program come from, in a window of the system's or of
    /// our own. It may appear after the call. Nothing is fetched.
    virtual void checkForUpdates() = 0;
};

} // namespace vantrel
