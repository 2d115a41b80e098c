#pragma once

#include <platform/Windows.h>

#include <memory>
#include <utility>
#include <vector>

namespace vantrel::fakes {

/// Windows that draw nothing. Each stays in `windows` after its owner dropped it.
class RecordingWindows : public Windows {
public:
    struct Record {
        ViewContent content;
        WindowDescription description;
        int showings = 0;
        bool isShown = false;
    };

    std::vector<std::shared_ptr<Record>> windows;

    [[nodiscard]] std::unique_ptr<DesktopWindow>
    makeWindow(const ViewContent &content, const WindowDescription &description) override {
        windows.push_back(std::make_shared<Record>(Record{content, description}));
        return std::make_unique<RecordingWindow>(windows.back());
    }

private:
    class RecordingWindow : public DesktopWindow {
    public:
        explicit RecordingWindow(std::shared_ptr<Record> record) : m_record(std::move(record)) {}
        void show() override {
            ++m_record->showings;
            m_record->isShown = true;
        }
        void hide() override { m_record->isShown = false; }

    private:
        std::shared_ptr<Record> m_record;
    };
};

} // namespace vantrel::fakes
