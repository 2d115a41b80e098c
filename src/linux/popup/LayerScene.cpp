#include "LayerScene.h"

#include "LayerPopup.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

/// From the canvases' first frames on. A host may tell of a click while the button is down, and as
/// long as it is the pointer stays with the host's window.
constexpr Seconds longestSearch{0.2};

/// Where a compositor shows none of them.
constexpr Seconds longestWait{3.0};

} // namespace

LayerScene::LayerScene(MainQueue &queue, const LayerShell &shell) : m_queue(queue), m_shell(shell) {
    const auto closeAll = [this] { closeFrom(0); };
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &m_watch,
                     [this](const QWindow *focused) { followFocus(focused); });
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &m_watch, closeAll);
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &m_watch, closeAll);
}

LayerScene::~LayerScene() {
    takeDown();
    for (const QPointer<PopupCanvas> &canvas : m_departed)
        delete canvas;
}

void LayerScene::push(LayerPopup &popup) {
    m_shown.push_back(&popup);
    if (m_shown.size() == 1)
        raise();
}

void LayerScene::remove(LayerPopup &popup) {
    closeAbove(popup);
    if (std::erase(m_shown, &popup) == 0)
        return;
    if (m_shown.empty())
        takeDown();
    else if (m_home)
        m_shown.back()->takeFocus();
}

void LayerScene::closeAbove(const LayerPopup &popup) {
    const auto found = std::find(m_shown.begin(), m_shown.end(), &popup);
    closeFrom(static_cast<std::size_t>(found - m_shown.begin()) + 1);
}

void LayerScene::raise() {
    m_hasHadFocus = false;
    for (QScreen *screen : QGuiApplication::screens()) {
        m_canvases.push_back(new PopupCanvas(m_shell, *screen, handlerOf(*screen)));
        QObject::connect(m_canvases.back(), &QQuickWindow::frameSwapped, &m_watch, [this] {
            if (!m_home && !m_canvases.empty())
                endSearchAfter(longestSearch);
        });
    }
    endSearchAfter(longestWait);
}

void LayerScene::takeDown() {
    m_endOfSearch.cancel();
    m_home = nullptr;
    m_click.reset();
    std::erase(m_departed, nullptr);
    for (PopupCanvas *canvas : std::exchange(m_canvases, {})) {
        m_departed.emplace_back(canvas);
        canvas->takeDown();
        canvas->deleteLater();
    }
}

void LayerScene::endSearchAfter(Seconds pause) {
    m_endOfSearch = m_queue.after(pause, [this] { chooseFirst(); });
}

PopupCanvas::Handler LayerScene::handlerOf(QScreen &screen) {
    const auto canvasOf = [this, &screen]() -> PopupCanvas * {
        const auto found = std::find_if(m_canvases.begin(), m_canvases.end(),
                                        [&](auto *canvas) { return canvas->screen() == &screen; });
        return found == m_canvases.end() ? nullptr : *found;
    };
    PopupCanvas::Handler handler;
    handler.configured = [this, canvasOf] {
        if (m_home && m_home == canvasOf())
            for (LayerPopup *popup : std::vector(m_shown))
                popup->settle();
    };
    handler.closed = [this] { closeFrom(0); };
    handler.pointerEntered = [this, canvasOf](QPoint place) {
        if (PopupCanvas *canvas = canvasOf(); canvas && !m_home)
            chooseHome(*canvas, place);
    };
    handler.pressed = [this](QPoint place) { return takesPress(place); };
    handler.released = [this] { closeFrom(m_closesFrom); };
    handler.dismissed = [this] {
        if (!m_shown.empty())
            m_shown.back()->close();
    };
    return handler;
}

void LayerScene::chooseHome(PopupCanvas &canvas, std::optional<QPoint> pointer) {
    m_endOfSearch.cancel();
    m_home = &canvas;
    m_click = pointer;
    canvas.takeKeyboard();
    for (LayerPopup *popup : std::vector(m_shown))
        popup->settle();
}

void LayerScene::chooseFirst() {
    const auto found = std::find_if(m_canvases.begin(), m_canvases.end(),
                                    [](const auto *canvas) { return canvas->isConfigured(); });
    if (found == m_canvases.end())
        closeFrom(0); // There is no output to show anything on.
    else
        chooseHome(**found, std::nullopt);
}

PopupArea LayerScene::area() const {
    return areaAround(m_home->geometry(), m_home->freeSize(), m_click);
}

PopupPlace LayerScene::placeFor(const LayerPopup &popup, const PopupPlace &place) const {
    if (&popup != m_shown.front())
        return place;
    const bool isAtClick = place.alignment == PopupAlignment::leading && area().corner;
    return {isAtClick ? std::optional(QRect(*m_click, QSize(0, 0))) : std::nullopt,
            place.alignment};
}

bool LayerScene::isDelivering() const {
    const auto isBusy = [](const PopupCanvas *canvas) { return canvas && canvas->isDelivering(); };
    return std::any_of(m_canvases.begin(), m_canvases.end(), isBusy) ||
           std::any_of(m_departed.begin(), m_departed.end(), isBusy);
}

bool LayerScene::takesPress(QPoint place) {
    const auto clicked = std::find_if(m_shown.rbegin(), m_shown.rend(), [place](auto *popup) {
        return popup->frame().contains(place);
    });
    m_closesFrom = static_cast<std::size_t>(m_shown.rend() - clicked);
    return m_closesFrom == m_shown.size();
}

/// The topmost first; each may take further ones with it.
void LayerScene::closeFrom(std::size_t index) {
    while (m_shown.size() > index)
        m_shown.back()->close();
}

void LayerScene::followFocus(const QWindow *focused) {
    if (m_home && focused == m_home)
        m_hasHadFocus = true;
    else if (std::exchange(m_hasHadFocus, false))
        closeFrom(0);
}

} // namespace vantrel
