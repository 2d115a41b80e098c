#pragma once

#include <platform/AccessPrompt.h>

#include <QVariant>

#include <functional>

namespace vantrel {

class MainQueue;
class ViewEngine;

/// Asks in a small window of its own: Return allows, Esc refuses, closing the window is no answer.
/// No key counts before the user can have read what it asks (`UnreadKeys`). The window lives as
/// long as the question.
class ConsentDialog : public AccessPrompt {
public:
    /// The colours of the window, asked for with each question: a `themePalette` of Vantrel.Theme.
    using Palette = std::function<QVariant()>;

    /// `queue` and `engine` must outlive the dialog and each of its questions.
    ConsentDialog(MainQueue &queue, ViewEngine &engine, Palette palette);

    [[nodiscard]] Subscription ask(const std::vector<CalendarPlace> &places,
                                   Answered answered) override;

private:
    MainQueue &m_queue;
    ViewEngine &m_engine;
    const Palette m_palette;
};

} // namespace vantrel
