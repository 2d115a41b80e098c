#pragma once

#include <platform/StatusItem.h>

#include <memory>
#include <vector>

namespace vantrel::fakes {

/// A status area that draws nothing. Each item stays in `items` after its owner dropped it, so that
/// a test can look at what became of it.
class RecordingStatusBar : public StatusBar {
public:
    struct Record {
        StatusItemListener listener;
        QString image;
        QString accessibleDescription;
        std::optional<StatusTitle> title;
        QString toolTip;
        int displayCount = 0; ///< How often the tooltip was set.
        StatusItemPlace place = StatusItemPlace::nowhere;
        bool exists = true;
    };

    std::vector<std::shared_ptr<Record>> items;
    bool makesItems = true; ///< Otherwise there is no item to be had, against the interface's word.

    [[nodiscard]] std::unique_ptr<StatusItem> makeItem(StatusItemListener listener) override;
};

} // namespace vantrel::fakes
