#include "X11Stack.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

/// Another program may want to be on top as well. The contest gets slower and slower.
const Backoff raisePauses(Seconds{0.001}, Seconds{1});

/// After so long without a rival a contest is over, and the next one begins afresh.
constexpr Seconds calm{10};

} // namespace

X11Stack::X11Stack(MainQueue &queue, X11Keyboard &keyboard)
    : m_queue(queue), m_keyboard(keyboard), m_pauses(raisePauses) {}

X11Stack::~X11Stack() {
    while (!m_windows.empty())
        remove(m_windows.back());
}

void X11Stack::add(xcb_window_t window) {
    if (m_windows.empty()) {
        m_pauses = raisePauses;
        m_triedLockers.clear();
        m_rivals.clear();
        x11::selectEvents(x11::rootWindow(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
    if (!isOurs(window))
        m_windows.push_back(window);
    x11::raise(window);
}

void X11Stack::remove(xcb_window_t window) {
    if (std::erase(m_windows, window) > 0 && m_windows.empty()) {
        m_check.cancel();
        m_isChecking = false;
        x11::deselectEvents(x11::rootWindow(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
}

void X11Stack::arrange() {
    const xcb_window_t locker = lowestLocker();
    for (const xcb_window_t window : m_windows) {
        if (locker == XCB_NONE)
            x11::raise(window);
        else
            x11::placeBelow(window, locker);
    }
    xcb_flush(x11::connection());
}

bool X11Stack::isLocked() const {
    return lowestLocker() != XCB_NONE;
}

bool X11Stack::isOurs(xcb_window_t window) const {
    return std::find(m_windows.begin(), m_windows.end(), window) != m_windows.end();
}

xcb_window_t X11Stack::lowestLocker() const {
    if (!m_keyboard.isWithheld())
        return XCB_NONE;
    const std::vector<xcb_window_t> order = x11::stackingOrder();
    const auto found = std::find_if(order.begin(), order.end(),
                                    [this](xcb_window_t window) { return isLockerToBe(window); });
    return found == order.end() ? XCB_NONE : *found;
}

/// Whether it looks like a locker, wherever the keyboard is.
bool X11Stack::isLockerToBe(xcb_window_t window) const {
    if (isOurs(window) || x11::isServersOwn(window))
        return false;
    const x11::WindowFacts facts = x11::describe(window);
    return facts.isVisible && facts.isUnmanaged &&
           std::any_of(m_windows.begin(), m_windows.end(), [&](xcb_window_t ours) {
               return facts.frame.contains(x11::describe(ours).frame);
           });
}

/// The windows of others that can be seen in front of one of ours.
std::vector<xcb_window_t> X11Stack::windowsAbove() const {
    std::vector<std::pair<xcb_window_t, QRect>> passed;
    std::vector<xcb_window_t> above;
    const std::vector<xcb_window_t> order = x11::stackingOrder();
    std::size_t unseen = m_windows.size();
    for (auto window = order.rbegin(); window != order.rend() && unseen > 0; ++window) {
        if (x11::isServersOwn(*window))
            continue;
        const x11::WindowFacts facts = x11::describe(*window);
        if (!isOurs(*window)) {
            if (facts.isVisible)
                passed.emplace_back(*window, facts.frame);
            continue;
        }
        --unseen;
        for (const auto &[other, frame] : passed) {
            if (frame.intersects(facts.frame))
                above.push_back(other);
        }
    }
    return above;
}

void X11Stack::handleEvent(const xcb_generic_event_t &event) {
    if (m_windows.empty())
        return;
    switch (event.response_type & ~0x80) {
    case XCB_MAP_NOTIFY:
        if (!isOurs(reinterpret_cast<const xcb_map_notify_event_t &>(event).window))
            checkSoon();
        break;
    case XCB_CONFIGURE_NOTIFY:
        if (!isOurs(reinterpret_cast<const xcb_configure_notify_event_t &>(event).window))
            checkSoon();
        break;
    case XCB_CIRCULATE_NOTIFY:
    case XCB_REPARENT_NOTIFY:
        checkSoon();
        break;
    default:
        break;
    }
}

void X11Stack::checkSoon() {
    if (std::exchange(m_isChecking, true))
        return;
    m_check = m_queue.after(Seconds::zero(), [this] {
        m_isChecking = false;
        check();
    });
}

void X11Stack::check() {
    const std::vector<xcb_window_t> above = windowsAbove();
    if (above.empty() || makeWayForLocker() || isLocked())
        return;
    m_isChecking = true;
    m_check = m_queue.after(pauseFor(above), [this] {
        m_isChecking = false;
        arrange();
        m_arrangedAt = m_queue.uptime();
    });
}

Seconds X11Stack::pauseFor(const std::vector<xcb_window_t> &above) {
    bool isFirstTime = false;
    for (const xcb_window_t window : above)
        isFirstTime |= m_rivals.insert(window).second;
    if (isFirstTime)
        return Seconds::zero();
    if (m_queue.uptime() - m_arrangedAt >= calm)
        m_pauses = raisePauses;
    return m_pauses.next().value_or(calm);
}

/// Answers whether a window is having its chance. The panels stay below it until the keyboard is
/// back.
bool X11Stack::makeWayForLocker() {
    for (const xcb_window_t window : x11::stackingOrder()) {
        if (isLockerToBe(window) && m_triedLockers.insert(window).second)
            return m_keyboard.lend();
    }
    return false;
}

} // namespace vantrel
