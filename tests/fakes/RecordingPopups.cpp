#include "RecordingPopups.h"

#include <utility>

namespace vantrel::fakes {

namespace {

void close(RecordingPopups::Record &record) {
    if (std::exchange(record.isShown, false) && record.listener.didClose)
        record.listener.didClose();
}

class RecordingPopup : public Popup {
public:
    explicit RecordingPopup(std::shared_ptr<RecordingPopups::Record> record)
        : m_record(std::move(record)) {}
    ~RecordingPopup() override {
        m_record->exists = false;
        m_record->isShown = false;
    }
    RecordingPopup(const RecordingPopup &) = delete;
    RecordingPopup &operator=(const RecordingPopup &) = delete;

    void show(const PopupPlace &place) override {
        m_record->places.push_back(place);
        if (!std::exchange(m_record->isShown, true) && m_record->listener.didShow)
            m_record->listener.didShow();
    }

    // The listener may destroy the popup.
    void close() override { fakes::close(*std::shared_ptr(m_record)); }

    [[nodiscard]] bool isShown() const override { return m_record->isShown; }

private:
    std::shared_ptr<RecordingPopups::Record> m_record;
};

} // namespace

std::unique_ptr<Popup> RecordingPopups::makePopup(const ViewContent &content,
                                                  PopupListener listener) {
    popups.push_back(std::make_shared<Record>());
    popups.back()->content = content;
    popups.back()->listener = std::move(listener);
    return std::make_unique<RecordingPopup>(popups.back());
}

void RecordingPopups::clickElsewhere() {
    for (const auto &popup : shown())
        close(*popup);
}

std::vector<std::shared_ptr<RecordingPopups::Record>> RecordingPopups::shown() const {
    std::vector<std::shared_ptr<Record>> shown;
    for (const auto &popup : popups) {
        if (popup->isShown)
            shown.push_back(popup);
    }
    return shown;
}

} // namespace vantrel::fakes
