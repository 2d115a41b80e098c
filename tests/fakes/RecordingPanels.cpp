#include "RecordingPanels.h"

#include <algorithm>

namespace vantrel::fakes {

namespace {

class RecordingPanel : public ShieldingPanel {
public:
    RecordingPanel(RecordingPanels &owner, std::shared_ptr<RecordingPanels::Record> record)
        : m_owner(owner), m_record(std::move(record)) {}

    ~RecordingPanel() override {
        m_record->isInFront = false;
        m_record->exists = false;
    }

    void orderFront() override {
        m_record->isInFront = true;
        m_owner.orderedFront.push_back(m_record->screen.id);
    }

    void setOpacity(double opacity) override { m_record->opacity = opacity; }
    void orderOut() override { m_record->isInFront = false; }

private:
    RecordingPanels &m_owner;
    std::shared_ptr<RecordingPanels::Record> m_record;
};

} // namespace

std::unique_ptr<ShieldingPanel> RecordingPanels::makePanel(const Screen &screen, PanelRole role,
                                                           const ViewContent &content) {
    if (std::find(lostScreenIds.begin(), lostScreenIds.end(), screen.id) != lostScreenIds.end())
        return nullptr;
    auto record = std::make_shared<Record>();
    record->screen = screen;
    record->role = role;
    record->content = content;
    if (whenMade)
        whenMade(*record);
    panels.push_back(record);
    return std::make_unique<RecordingPanel>(*this, std::move(record));
}

Subscription RecordingPanels::monitorKeyDown(KeyHandler handler) {
    auto held = std::make_shared<KeyHandler>(std::move(handler));
    m_handler = held;
    return held;
}

bool RecordingPanels::press(const KeyPress &key) {
    const auto handler = m_handler.lock();
    return handler && (*handler)(key);
}

std::vector<std::shared_ptr<RecordingPanels::Record>> RecordingPanels::shown() const {
    std::vector<std::shared_ptr<Record>> found;
    for (const auto &record : panels) {
        if (record->exists && record->isInFront)
            found.push_back(record);
    }
    return found;
}

} // namespace vantrel::fakes
