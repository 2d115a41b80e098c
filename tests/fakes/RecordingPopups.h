#pragma once

#include <platform/Popups.h>

#include <memory>
#include <vector>

namespace vantrel::fakes {

/// Popups that draw nothing. Each stays in `popups` after its owner dropped it, so that a test can
/// look at what became of it.
class RecordingPopups : public Popups {
public:
    struct Record {
        ViewContent content;
        PopupListener listener;
        std::vector<PopupPlace> places; ///< One for each call of `show`.
        bool isShown = false;
        bool exists = true;
    };

    std::vector<std::shared_ptr<Record>> popups;

    [[nodiscard]] std::unique_ptr<Popup> makePopup(const ViewContent &content,
                                                   PopupListener listener) override;

    /// The user clicks elsewhere: closes what is shown.
    void clickElsewhere();

    /// The popups that exist and are shown.
    [[nodiscard]] std::vector<std::shared_ptr<Record>> shown() const;
};

} // namespace vantrel::fakes
