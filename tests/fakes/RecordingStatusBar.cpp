#include "RecordingStatusBar.h"

#include <utility>

namespace vantrel::fakes {

namespace {

class RecordingStatusItem : public StatusItem {
public:
    explicit RecordingStatusItem(std::shared_ptr<RecordingStatusBar::Record> record)
        : m_record(std::move(record)) {}
    ~RecordingStatusItem() override { m_record->exists = false; }
    RecordingStatusItem(const RecordingStatusItem &) = delete;
    RecordingStatusItem &operator=(const RecordingStatusItem &) = delete;

    void setImage(const QString &symbol, const QString &accessibleDescription) override {
        m_record->image = symbol;
        m_record->accessibleDescription = accessibleDescription;
    }

    void setTitle(const std::optional<StatusTitle> &title) override { m_record->title = title; }

    void setToolTip(const QString &text) override {
        m_record->toolTip = text;
        ++m_record->displayCount;
    }

    [[nodiscard]] StatusItemPlace place() const override { return m_record->place; }

private:
    std::shared_ptr<RecordingStatusBar::Record> m_record;
};

} // namespace

std::unique_ptr<StatusItem> RecordingStatusBar::makeItem(StatusItemListener listener) {
    if (!makesItems)
        return nullptr;
    items.push_back(std::make_shared<Record>());
    items.back()->listener = std::move(listener);
    return std::make_unique<RecordingStatusItem>(items.back());
}

} // namespace vantrel::fakes
