#pragma once

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <takeover/TakeoverContents.h>
#include <theme/Theme.h>

#include <QQuickItem>
#include <QString>

#include <gallery/Stage.h>

#include <memory>
#include <optional>

namespace vantrel {

/// The interactive view of a meeting at nine, on a stage, one minute before.
class ShownView {
public:
    ShownView() {
        context.title = QStringLiteral("Standup");
        context.startsAt = fakes::at("2026-03-02T09:00:00");
        context.endsAt = fakes::at("2026-03-02T09:30:00");
        context.copyLine = QStringLiteral("Back to it.");
    }

    /// Makes the view model and the view, of what `context` holds by now.
    gallery::Stage &make(Theme theme = Theme::hearth, QSize size = {1366, 768}) {
        m_stage.reset();
        m_viewModel = std::make_unique<TakeoverViewModel>(
            context, phaseState, queue,
            TakeoverViewModel::Actions{[this] { ++joins; }, [this] { ++snoozes; },
                                       [this] { ++dismissals; }});
        ViewContent content = takeoverViewContent(*m_viewModel, palette(theme));
        content.properties.insert(QStringLiteral("reducedMotion"), reducedMotion);
        m_stage = std::make_unique<gallery::Stage>(content, size);
        return *m_stage;
    }

    [[nodiscard]] QQuickItem &item(const char *objectName) const {
        QQuickItem *found = m_stage->find(QLatin1String(objectName));
        if (!found)
            qFatal("There is no item %s", objectName);
        return *found;
    }

    [[nodiscard]] QString textOf(const char *objectName) const {
        return item(objectName).property("text").toString();
    }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:59:00")};
    TakeoverPhaseState phaseState;
    TakeoverContext context;
    bool reducedMotion = true;
    int joins = 0;
    int snoozes = 0;
    int dismissals = 0;

private:
    std::unique_ptr<TakeoverViewModel> m_viewModel;
    std::unique_ptr<gallery::Stage> m_stage;
};

} // namespace vantrel
