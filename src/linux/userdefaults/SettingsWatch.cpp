#include "SettingsWatch.h"

#include <QFileInfo>
#include <QStringList>

#include <utility>

namespace vantrel {

namespace {

/// Editors write in several steps.
constexpr Seconds quietTime{0.1};

/// Of the file and of what it may point to: a file that is replaced is seen by its folder alone.
QStringList placesOf(const QString &path) {
    const QFileInfo file(path);
    QStringList places{file.absolutePath(), file.absoluteFilePath()};
    if (const QString target = file.canonicalFilePath(); !target.isEmpty())
        places << QFileInfo(target).absolutePath() << target;
    places.removeDuplicates();
    places.removeIf([](const QString &place) { return !QFileInfo::exists(place); });
    return places;
}

} // namespace

SettingsWatch::SettingsWatch(MainQueue &queue, QString path, std::function<void()> changed)
    : m_queue(queue), m_path(std::move(path)), m_changed(std::move(changed)) {
    const auto look = [this] { this->look(); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_life, look);
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_life, look);
    m_watcher.addPaths(placesOf(m_path));
}

void SettingsWatch::look() {
    m_news = m_queue.after(quietTime, [this] {
        // What was replaced is not watched any more.
        const QStringList watched = m_watcher.files() + m_watcher.directories();
        for (const QString &place : placesOf(m_path)) {
            if (!watched.contains(place))
                m_watcher.addPath(place);
        }
        m_changed();
    });
}

} // namespace vantrel
