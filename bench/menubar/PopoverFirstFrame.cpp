#include <fakes/FakeEventStore.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/Times.h>
#include <linux/layershell/LayerShell.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <linux/popup/QtPopups.h>
#include <linux/views/ViewEngine.h>
#include <menubar/PopoverContents.h>
#include <menubar/UpcomingEventsPopover.h>

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSGRendererInterface>
#include <QTemporaryFile>

#include <cstdio>
#include <functional>

namespace {

using namespace vantrel;

constexpr int meetings = 2000;
constexpr int times = 11;

/// From `begin` to the end of the first frame that any window shows; in milliseconds.
double frameAfter(MainQueue &queue, const std::function<void()> &begin) {
    const MonotonicInstant start = queue.uptime();
    MonotonicInstant end = start;
    QObject watch;
    begin();
    const auto windows = QGuiApplication::allWindows();
    for (QWindow *window : windows) {
        if (auto *shown = qobject_cast<QQuickWindow *>(window); shown && shown->isVisible())
            QObject::connect(shown, &QQuickWindow::frameSwapped, &watch, [&] {
                if (end == start)
                    end = queue.uptime();
            });
    }
    while (end == start)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return 1000.0 * (end - start).count();
}

/// The first time, then the median of the times after it.
void report(MainQueue &queue, const std::function<void()> &open,
            const std::function<void()> &close) {
    const double first = frameAfter(queue, open);
    std::vector<double> again;
    for (int time = 0; time < times; ++time) {
        close();
        QCoreApplication::processEvents();
        again.push_back(frameAfter(queue, open));
    }
    std::sort(again.begin(), again.end());
    std::printf("%.1f %.1f\n", first, again[again.size() / 2]);
}

void measurePopover(MainQueue &queue) {
    fakes::FakeEventStore store([&queue] { return queue.now(); });
    auto calendar = std::make_shared<StoreCalendar>();
    calendar->calendarIdentifier = QStringLiteral("one");
    store.storedCalendars = {*calendar};
    for (int number = 0; number < meetings; ++number) {
        StoreEvent event;
        event.eventIdentifier = QString::number(number);
        event.title = QStringLiteral("Meeting %1").arg(number);
        event.startDate = queue.now() + Seconds{600.0 * (number + 1)};
        event.endDate = event.startDate + Seconds{1800.0};
        event.notes = QStringLiteral("https://zoom.us/j/%1").arg(98765432100 + number);
        event.calendar = calendar;
        store.storedEvents.push_back(event);
    }
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences(defaults);
    preferences.setSelectedCalendarIDs({calendar->calendarIdentifier});
    const UpcomingEventsQuery query(store);
    const auto local = [] { return LocalCalendar(QTimeZone::utc(), QLocale(QLocale::English)); };
    UpcomingEventsViewModel viewModel(query, preferences, queue, local);
    viewModel.setMode(EventListMode::all);
    PopoverModel model(viewModel, preferences, local, {[](const auto &) {}, [](QPoint) {}});
    ViewEngine engine;
    const LayerShell layerShell;
    QtPopups popups(queue, engine, layerShell);
    UpcomingEventsPopover popover(popups, upcomingEventsContent(model), viewModel, queue);
    report(
        queue, [&popover] { popover.show(QRect(600, 0, 24, 24)); },
        [&popover] { popover.close(); });
}

void measureBareView(MainQueue &queue) {
    QTemporaryFile file(QStringLiteral("XXXXXX.qml"));
    if (!file.open())
        return;
    file.write("import QtQuick\nListView { width: 360; height: 560 }\n");
    file.flush();
    std::unique_ptr<QQuickView> view;
    report(
        queue,
        [&] {
            if (!view) {
                QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
                view = std::make_unique<QQuickView>(QUrl::fromLocalFile(file.fileName()));
                view->setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
            }
            view->show();
        },
        [&] { view->hide(); });
}

} // namespace

/// From the click to the first frame, of the popover with 2,000 meetings or of a bare view with an
/// empty list: prints the first time and the median of the times after, in milliseconds.
int main(int argc, char **argv) {
    const QGuiApplication application(argc, argv);
    QtMainQueue queue;
    if (argc > 1 && QByteArrayView(argv[1]) == "bare")
        measureBareView(queue);
    else
        measurePopover(queue);
}
