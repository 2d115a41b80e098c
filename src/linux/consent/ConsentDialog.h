#pragma once

#include <platform/AccessPrompt.h>

#include <QVariant>

#include <functional>

namespace vantrel {

class ViewEngine;

/// Asks in a small window of its own: Return allows, Esc refuses, closing the window is no answer.
/// The window lives as long as the question.
class ConsentDialog : public AccessPrompt {
public:
    /// The colours of the window, asked for with each question: a `themePalette` of Vantrel.Theme.
    using Palette = std::function<QVariant()>;

    /// `engine` must outlive the dialog and each of its questions.
    ConsentDialog(ViewEngine &engine, Palette palette);

    [[nodiscard]] Subscription ask(const std::vector<CalendarPlace> &places,
                                   Answered answered) override;

private:
    ViewEngine &m_engine;
    const Palette m_palette;
};

} // namespace vantrel
