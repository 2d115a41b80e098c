#include "FolderSource.h"

#include "CalendarColors.h"
#include "StoreLog.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstring>
#include <utility>

namespace vantrel {

namespace {

constexpr std::int64_t maximumFileSize = 32 * 1024 * 1024;
constexpr std::int64_t maximumDescriptionSize = 4096;
constexpr Seconds quietTime{0.1};
constexpr Seconds longestDelay{1.0};
constexpr Seconds pollInterval{60.0};

bool isItem(const files::Entry &entry) {
    return !entry.isFolder && entry.name.size() > 4 &&
           QByteArrayView(entry.name).last(4).compare(".ics", Qt::CaseInsensitive) == 0;
}

QByteArray encoded(const QString &path) {
    return QFile::encodeName(QDir::cleanPath(QDir(path).absolutePath()));
}

/// The same path without symbolic links, as far as it exists.
QByteArray resolved(const QByteArray &path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr),
                                                           &std::free);
    return real ? QByteArray(real.get()) : path;
}

QString identifierOf(const QByteArray &path) {
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha1);
    return QStringLiteral("folder-") + QString::fromLatin1(hash.toHex().left(16));
}

} // namespace

FolderSource::FolderSource(MainQueue &queue, std::vector<FolderRoot> roots)
    : m_queue(queue), m_roots(std::move(roots)) {}

FolderSource::~FolderSource() = default;

void FolderSource::start() {
    m_watch = std::make_unique<FolderWatch>(
        [this](const std::optional<std::vector<FolderWatch::Event>> &events) {
            noteEvents(events);
        });
    m_poll = m_queue.every(pollInterval, [this] { pollSlowly(); });
}

std::vector<SourceCalendar> FolderSource::calendars() {
    Round round;
    {
        const std::lock_guard lock(m_mutex);
        round.changes = std::exchange(m_changes, Changes{false, {}, {}});
    }
    m_isShortOfWatches = false;
    for (const FolderRoot &root : m_roots)
        lookAt(root, round);
    if (m_watch)
        m_watch->sweep();
    return std::move(round.calendars);
}

void FolderSource::lookAt(const FolderRoot &root, Round &round) {
    const QByteArray path = encoded(root.path);
    watchForPath(path);
    const files::Status status = files::status(path);
    switch (status.kind) {
    case files::Kind::folder:
        lookAtFolder(root, path, round);
        break;
    case files::Kind::file: {
        const QString name = QFile::decodeName(files::nameOf(path));
        addCalendar({identifierOf("root:" + path), root.title.isEmpty() ? name : root.title}, path,
                    true, round);
        break;
    }
    case files::Kind::missing:
        if (!root.isCalendarHome)
            noteTrouble(path, ENOENT, "no calendars");
        break;
    case files::Kind::other:
    case files::Kind::unreadable:
        noteTrouble(path, EACCES, "no calendars");
        break;
    }
}

void FolderSource::lookAtFolder(const FolderRoot &root, const QByteArray &path, Round &round) {
    watch(path);
    int error = 0;
    auto entries = files::list(path, error);
    if (!entries)
        return noteTrouble(path, error, "folder not read");
    m_troubles.remove(path);
    std::sort(entries->begin(), entries->end(),
              [](const auto &left, const auto &right) { return left.name < right.name; });
    const QString name = QFile::decodeName(files::nameOf(path));
    const StoreSource source{identifierOf("root:" + path),
                             root.title.isEmpty() ? name : root.title};
    const bool hasFolders = std::any_of(entries->begin(), entries->end(),
                                        [](const auto &entry) { return entry.isFolder; });
    if (std::any_of(entries->begin(), entries->end(), isItem) ||
        (!hasFolders && !root.isCalendarHome))
        addCalendar(source, path, false, round);
    for (const files::Entry &entry : *entries) {
        if (entry.isFolder)
            addCalendar(source, path + '/' + entry.name, false, round);
    }
}

void FolderSource::addCalendar(const StoreSource &source, const QByteArray &path, bool isFile,
                               Round &round) {
    const files::Status status = files::status(path);
    if (!round.seen.emplace(status.device, status.inode).second)
        return;
    const Place place{resolved(path), isFile};
    const QByteArray folder = isFile ? files::folderOf(place.path) : place.path;
    if (isFile)
        watch(folder, files::nameOf(place.path));
    else
        watch(folder);

    SourceCalendar calendar;
    calendar.calendar.calendarIdentifier = identifierOf(path);
    calendar.calendar.title = QFile::decodeName(files::nameOf(path));
    calendar.calendar.color = defaultColor(calendar.calendar.calendarIdentifier);
    calendar.calendar.allowsContentModifications = files::isWritable(path);
    calendar.calendar.source = source;
    calendar.isDescribedByText = isFile;
    if (isFile && isItem({files::nameOf(path)}))
        calendar.calendar.title.chop(4);
    if (!isFile)
        describeFolder(calendar.calendar, place.path);

    const bool isFirst = !m_places.contains(calendar.calendar.calendarIdentifier);
    calendar.hasChanges =
        isFirst || round.changes.isEverything || round.changes.folders.contains(folder);
    if (const auto rewritten = round.changes.rewritten.find(folder);
        rewritten != round.changes.rewritten.end())
        calendar.rewrittenItems = rewritten->second;
    m_places.insert(calendar.calendar.calendarIdentifier, place);
    round.calendars.push_back(std::move(calendar));
}

void FolderSource::describeFolder(StoreCalendar &calendar, const QByteArray &path) {
    int error = 0;
    if (const auto name = files::read(path + "/displayname", maximumDescriptionSize, error)) {
        const QString title = QString::fromUtf8(*name).simplified();
        if (!title.isEmpty())
            calendar.title = title;
    }
    if (const auto text = files::read(path + "/color", maximumDescriptionSize, error)) {
        if (const auto color = colorFromText(QString::fromUtf8(*text)))
            calendar.color = color;
    }
}

std::optional<std::vector<SourceItem>> FolderSource::items(const QString &calendarIdentifier) {
    const Place place = m_places.value(calendarIdentifier);
    int error = 0;
    std::vector<SourceItem> items;
    const auto entries =
        files::list(place.isFile ? files::folderOf(place.path) : place.path, error);
    if (!entries) {
        noteTrouble(place.path, error, "folder not read");
        return std::nullopt;
    }
    m_troubles.remove(place.path);
    const QByteArray only = place.isFile ? files::nameOf(place.path) : QByteArray();
    for (const files::Entry &entry : *entries) {
        if (place.isFile ? entry.name == only : isItem(entry))
            items.push_back({entry.name, {entry.modified, entry.size, entry.inode}});
    }
    return items;
}

std::optional<QByteArray> FolderSource::text(const QString &calendarIdentifier,
                                             const QByteArray &item) {
    const Place place = m_places.value(calendarIdentifier);
    const QByteArray path = place.isFile ? place.path : place.path + '/' + item;
    int error = 0;
    auto text = files::read(path, maximumFileSize, error);
    if (!text && error != ENOENT)
        noteTrouble(path, error, "file not read");
    else if (text)
        m_troubles.remove(path);
    if (text && text->size() >= maximumFileSize)
        noteTrouble(path, EFBIG, "only its first 32 MB are read");
    return text;
}

QString FolderSource::description(const QString &calendarIdentifier, const QByteArray &item) const {
    const Place place = m_places.value(calendarIdentifier);
    return QFile::decodeName(place.isFile ? place.path : place.path + '/' + item);
}

void FolderSource::watch(const QByteArray &folder, const QByteArray &name) {
    if (!m_watch || m_watch->add(folder, name) || m_isShortOfWatches.exchange(true))
        return;
    noteTrouble(folder, ENOSPC, "changes are looked for once a minute");
}

/// Watches for the path itself to come and go: in its folder, or in the nearest one that exists.
void FolderSource::watchForPath(const QByteArray &path) {
    QByteArray name = path;
    while (name.size() > 1) {
        const QByteArray folder = files::folderOf(name);
        if (files::status(folder).kind == files::Kind::folder)
            return watch(resolved(folder), files::nameOf(name));
        name = folder;
    }
}

void FolderSource::noteEvents(const std::optional<std::vector<FolderWatch::Event>> &events) {
    {
        const std::lock_guard lock(m_mutex);
        if (!events)
            m_changes.isEverything = true;
        for (const FolderWatch::Event &event : events.value_or(std::vector<FolderWatch::Event>())) {
            m_changes.folders.insert(event.folder);
            if (event.isRewritten)
                m_changes.rewritten[event.folder].push_back(event.name);
        }
    }
    announceSoon();
}

/// Waits until nothing has happened for a moment, but not for ever.
void FolderSource::announceSoon() {
    const MonotonicInstant uptime = m_queue.uptime();
    if (!m_firstEvent)
        m_firstEvent = uptime;
    const Seconds left = *m_firstEvent + longestDelay - uptime;
    m_announcement = m_queue.after(std::min(quietTime, left), [this] { announceNow(); });
}

void FolderSource::announceNow() {
    m_firstEvent.reset();
    changed.announce();
}

/// Stands in for the watch where the system allows none.
void FolderSource::pollSlowly() {
    if (!m_isShortOfWatches)
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_changes.isEverything = true;
    }
    changed.announce();
}

void FolderSource::noteTrouble(const QByteArray &path, int error, const char *what) {
    if (m_troubles.value(path) == error)
        return;
    m_troubles.insert(path, error);
    qCWarning(eventStoreLog).noquote().nospace()
        << QFile::decodeName(path) << ": " << what << " (" << std::strerror(error) << ")";
}

} // namespace vantrel
