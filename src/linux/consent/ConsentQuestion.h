#pragma once

#include "ConsentViewModel.h"
#include "UnreadKeys.h"

#include <platform/AccessPrompt.h>
#include <platform/ViewContent.h>

#include <QObject>
#include <QVariant>

#include <memory>
#include <vector>

class QQuickItem;
class QQuickWindow;

namespace vantrel {

class ViewEngine;

/// What the window shows. `viewModel` must outlive it; `palette` is a `themePalette`.
[[nodiscard]] ViewContent consentContent(ConsentViewModel &viewModel, const QVariant &palette);

/// One question in its window; destroying it takes the window away.
class ConsentQuestion {
public:
    /// `answered` is called once, by the event loop; it may destroy the question.
    ConsentQuestion(MainQueue &queue, ViewEngine &engine, const std::vector<CalendarPlace> &places,
                    const QVariant &palette, AccessPrompt::Answered answered);
    ConsentQuestion(const ConsentQuestion &) = delete;
    ConsentQuestion &operator=(const ConsentQuestion &) = delete;
    ~ConsentQuestion();

    /// A window that cannot be made counts as put aside, with a log line.
    void show();

private:
    void place();
    void pass(AccessPrompt::Answer answer, AccessPrompt::Answered answered);

    ConsentViewModel m_viewModel;
    std::unique_ptr<QQuickWindow> m_window;
    UnreadKeys m_unreadKeys;
    std::unique_ptr<QQuickItem> m_view; ///< Null when it could not be made.
    QObject m_receiver;                 ///< Messages to it are dropped once it is gone.
};

} // namespace vantrel
