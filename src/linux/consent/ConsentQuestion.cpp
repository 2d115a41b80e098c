#include "ConsentQuestion.h"

#include <linux/views/ViewEngine.h>
#include <platform/Log.h>

#include <QCursor>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

extern void qml_register_types_Vantrel_Consent();

namespace vantrel {

namespace {

VANTREL_LOG(consentLog, "Consent")

/// How much of a screen's height the window takes at most.
constexpr double largestShare = 0.8;

} // namespace

ViewContent consentContent(ConsentViewModel &viewModel, const QVariant &palette) {
    // Referring to the function is enough; the engine calls it when the module is imported.
    [[maybe_unused]] static void (*const volatile registration)() =
        &qml_register_types_Vantrel_Consent;
    return {QStringLiteral("Vantrel.Consent"),
            QStringLiteral("ConsentView"),
            {{QStringLiteral("viewModel"), QVariant::fromValue(&viewModel)},
             {QStringLiteral("themePalette"), palette}}};
}

ConsentQuestion::ConsentQuestion(MainQueue &queue, ViewEngine &engine,
                                 const std::vector<CalendarPlace> &places, const QVariant &palette,
                                 AccessPrompt::Answered answered)
    : m_viewModel(places, [this, answered = std::move(answered)](
                              AccessPrompt::Answer answer) { pass(answer, answered); }),
      m_window(std::make_unique<QQuickWindow>()),
      m_unreadKeys(queue, *m_window),
      m_view(
          engine.makeItem(consentContent(m_viewModel, palette), *m_window, ItemSize::ofContent)) {}

ConsentQuestion::~ConsentQuestion() {
    QObject::disconnect(m_window.get(), nullptr, &m_receiver, nullptr);
    m_view.reset();
    m_window.reset();
}

void ConsentQuestion::show() {
    if (!m_view) {
        qCCritical(consentLog) << "the question for the calendars cannot be shown";
        return m_viewModel.putAside();
    }
    m_window->setFlag(Qt::Dialog);
    // One that stays above others would cover its own question. A popup goes away by itself.
    QWindow *asking = QGuiApplication::focusWindow();
    if (asking && asking->type() == Qt::Window)
        m_window->setTransientParent(asking);
    m_window->setTitle(QStringLiteral("Vantrel"));
    place();
    const auto resize = [this] { m_view->setSize(m_window->contentItem()->size()); };
    QObject::connect(m_window->contentItem(), &QQuickItem::widthChanged, m_view.get(), resize);
    QObject::connect(m_window->contentItem(), &QQuickItem::heightChanged, m_view.get(), resize);
    resize();
    QObject::connect(m_window.get(), &QWindow::visibleChanged, &m_receiver, [this](bool isVisible) {
        if (!isVisible)
            m_viewModel.putAside();
    });
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
}

/// In the middle of the screen with the pointer, as large as its content wants to be.
void ConsentQuestion::place() {
    QScreen *screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    const int mostHigh = static_cast<int>(largestShare * available.height());
    const QSize size(
        std::min(static_cast<int>(std::ceil(m_view->implicitWidth())), available.width()),
        std::min(static_cast<int>(std::ceil(m_view->implicitHeight())), mostHigh));
    QRect geometry(QPoint(), size);
    geometry.moveCenter(available.center());
    m_window->setScreen(screen);
    m_window->setMinimumSize(
        QSize(size.width(), std::min(size.height(), m_view->property("leastHeight").toInt())));
    m_window->setGeometry(geometry);
}

/// Ahead of the event loop's next turn the window is closed; the answer goes out only then, since
/// it comes from within the window's own items.
void ConsentQuestion::pass(AccessPrompt::Answer answer, AccessPrompt::Answered answered) {
    m_window->hide();
    QMetaObject::invokeMethod(
        &m_receiver, [answer, answered = std::move(answered)] { answered(answer); },
        Qt::QueuedConnection);
}

} // namespace vantrel
