#pragma once

#include <platform/SoftwareUpdater.h>

namespace vantrel::fakes {

/// Counts how often it was asked, and shows nothing.
class RecordingUpdater : public SoftwareUpdater {
public:
    int checks = 0;

    void checkForUpdates() override { ++checks; }
};

} // namespace vantrel::fakes
