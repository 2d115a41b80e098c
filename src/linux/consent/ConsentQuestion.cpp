#include "ConsentQuestion.h"

#include <platform/Log.h>

#include <QCursor>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
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

void logErrors(const QList<QQmlError> &errors) {
    for (const QQmlError &error : errors)
        qCWarning(consentLog).noquote() << error.toString();
}

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

ConsentQuestion::ConsentQuestion(const std::vector<CalendarPlace> &places, const QVariant &palette,
                                 AccessPrompt::Answered answered)
    : m_viewModel(places, [this, answered = std::move(answered)](
                              AccessPrompt::Answer answer) { pass(answer, answered); }),
      m_engine(std::make_unique<QQmlEngine>()) {
    // As for the takeover: works without a driver, and looks the same everywhere.
    if (QQuickWindow::sceneGraphBackend() != QLatin1String("software"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    m_engine->addImportPath(QStringLiteral("qrc:/qt/qml")); // By default from Qt 6.5 on.
    m_engine->setOutputWarningsToStandardError(false);
    QObject::connect(m_engine.get(), &QQmlEngine::warnings, &logErrors);
    m_window = std::make_unique<QQuickWindow>();
    m_view = makeView(palette);
}

ConsentQuestion::~ConsentQuestion() {
    QObject::disconnect(m_window.get(), nullptr, &m_receiver, nullptr);
    m_view.reset();
    m_window.reset();
}

std::unique_ptr<QQuickItem> ConsentQuestion::makeView(const QVariant &palette) {
    const ViewContent content = consentContent(m_viewModel, palette);
    QQmlComponent component(m_engine.get());
    const QString source =
        QStringLiteral("import %1\n%2 {}\n").arg(content.module, content.typeName);
    // The name for messages has to look like a local file, or imports are fetched one by one.
    component.setData(source.toUtf8(), QUrl(QStringLiteral("qrc:/consent/") + content.typeName));
    std::unique_ptr<QObject> root(component.beginCreate(m_engine->rootContext()));
    auto *item = qobject_cast<QQuickItem *>(root.get());
    if (!item) {
        logErrors(component.errors());
        return nullptr;
    }
    component.setInitialProperties(item, content.properties);
    item->setParentItem(m_window->contentItem());
    component.completeCreate();
    if (component.isError()) {
        logErrors(component.errors());
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    (void)root.release();
    return std::unique_ptr<QQuickItem>(item);
}

void ConsentQuestion::show() {
    if (!m_view) {
        qCCritical(consentLog) << "the question for the calendars cannot be shown";
        return m_viewModel.putAside();
    }
    m_window->setFlag(Qt::Dialog);
    m_window->setTitle(QStringLiteral("Vantrel"));
    place();
    const auto resize = [this] { m_view->setSize(m_window->contentItem()->size()); };
    QObject::connect(m_window->contentItem(), &QQuickItem::widthChanged, m_view.get(), resize);
    QObject::connect(m_window->contentItem(), &QQuickItem::heightChanged, m_view.get(), resize);
    resize();
    m_view->setFocus(true);
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
