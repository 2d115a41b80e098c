#pragma once

#include <platform/AccessPrompt.h>

#include <QVariant>

#include <functional>

namespace vantrel {

/// Asks in a small window of its own: Return allows, Esc refuses, closing the window is no answer.
/// The window, and the QML engine with it, lives as long as the question. Needs a QGuiApplication.
class ConsentDialog : public AccessPrompt {
public:
    /// The colours of the window, asked for with each question: a `themePalette` of Vantrel.Theme.
    using Palette = std::function<QVariant()>;

    explicit ConsentDialog(Palette palette);

    [[nodiscard]] Subscription ask(const std::vector<CalendarPlace> &places,
                                   Answered answered) override;

private:
    const Palette m_palette;
};

} // namespace vantrel
