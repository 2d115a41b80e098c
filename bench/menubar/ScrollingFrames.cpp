#include <menubar/PopoverContents.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryFile>

#include <gallery/ShownPopover.h>
#include <gallery/Stage.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

using namespace vantrel;

constexpr int meetings = 2000;
constexpr int steps = 400;
constexpr double stepLength = 90.0; ///< Of one notch of a wheel, in pixels.

/// Scrolls by a notch again and again: prints, in milliseconds, how long after each the frame was
/// there (median, 95th percentile, worst), and the greatest number of rows that existed at once.
void scroll(QQuickWindow &window, QQuickItem &list) {
    bool isDrawn = false;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &list, [&isDrawn] { isDrawn = true; });
    std::vector<double> lengths;
    qsizetype mostRows = 0;
    for (int step = 1; step <= steps; ++step) {
        QCoreApplication::processEvents();
        isDrawn = false;
        QElapsedTimer time;
        time.start();
        list.setProperty("contentY", step * stepLength);
        while (!isDrawn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        lengths.push_back(1e-6 * static_cast<double>(time.nsecsElapsed()));
        const auto items = gallery::withDescendants(list);
        mostRows =
            std::max(mostRows, std::count_if(items.begin(), items.end(), [](QQuickItem *item) {
                         return item->property("timeRange").isValid() ||
                                item->objectName() == QLatin1String("bareRow");
                     }));
    }
    std::sort(lengths.begin(), lengths.end());
    std::printf("%.1f %.1f %.1f %lld\n", lengths[steps / 2], lengths[steps * 95 / 100],
                lengths.back(), static_cast<long long>(mostRows));
}

void scrollPopover() {
    gallery::ShownPopover popover;
    for (int number = 0; number < meetings; ++number)
        popover.add({QStringLiteral("Meeting %1").arg(number),
                     popover.queue.now() + Seconds{600.0 * (number + 1)},
                     30,
                     {0.2, 0.4, 0.8},
                     number % 3 == 0,
                     QStringLiteral("https://zoom.us/j/%1").arg(98765432100 + number),
                     {}});
    popover.viewModel.setMode(EventListMode::all);
    popover.viewModel.popoverDidShow();
    gallery::Stage stage(upcomingEventsContent(popover.model), QSize(360, 560));
    stage.show();
    scroll(stage.window(), *stage.find(QStringLiteral("events")));
}

void scrollBareList() {
    QTemporaryFile file(QStringLiteral("XXXXXX.qml"));
    if (!file.open())
        return;
    file.write(
        "import QtQuick\n"
        "ListView { width: 360; height: 560; model: 2000\n"
        "  delegate: Text { objectName: 'bareRow'; height: 60; text: 'Meeting ' + index } }\n");
    file.flush();
    QQuickView view(QUrl::fromLocalFile(file.fileName()));
    view.show();
    scroll(view, *view.rootObject());
}

} // namespace

/// How smoothly the popover's list with 2,000 meetings scrolls, or a bare list with as many texts.
int main(int argc, char **argv) {
    gallery::Stage::prepare();
    const QGuiApplication application(argc, argv);
    if (argc > 1 && QByteArrayView(argv[1]) == "bare")
        scrollBareList();
    else
        scrollPopover();
}
