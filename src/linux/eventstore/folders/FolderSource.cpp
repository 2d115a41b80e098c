#include "FolderSource.h"

#include "FolderDescription.h"

#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace vantrel {

namespace {

constexpr std::int64_t maximumFileSize = 32 * 1024 * 1024;

bool isItem(const files::Entry &entry) {
    return !entry.isFolder && hasCalendarSuffix(entry.name);
}

/// What was a calendar looks like that as long as nothing is mounted there.
bool isEmptyOrUnreadable(const QByteArray &folder) {
    int error = 0;
    const auto entries = files::list(folder, files::Detail::kind, error);
    return !entries || entries->empty();
}

PlaceOnDisk placeOf(const files::Status &status) {
    return {status.device, status.inode};
}

/// Whether a disk lay over the folder when it was found last, and none does any more.
bool hasLostItsDisk(const QByteArray &folder, const files::Status &status,
                    const PlaceOnDisk &former) {
    int error = 0;
    if (status.kind != files::Kind::folder || status.device == former.device ||
        files::isMountPoint(folder))
        return false;
    const auto entries = files::list(folder, files::Detail::kind, error);
    return entries && entries->empty();
}

/// Whether something happened to the calendar that lies there.
bool isTouched(const FolderChanges::Changes &changes, const QByteArray &folder,
               const std::set<QByteArray> &linkedFiles) {
    return changes.isEverything || changes.paths.contains(folder) ||
           std::any_of(linkedFiles.begin(), linkedFiles.end(),
                       [&changes](const QByteArray &file) { return changes.paths.contains(file); });
}

} // namespace

FolderSource::FolderSource(MainQueue &queue, FolderRoot root,
                           std::shared_ptr<WatchDescriptor> descriptor)
    : m_changes(
          queue, [this] { changed.announce(); }, std::move(descriptor)),
      m_absences(queue, [this] { changed.announce(); }),
      m_root(std::move(root)) {}

std::vector<SourceCalendar> FolderSource::calendars() {
    Round round;
    round.changes = m_changes.take();
    lookAtRoot(round);
    m_changes.endRound();
    m_places = std::move(round.places);
    m_listed = round.calendars;
    for (const SourceCalendar &one : m_listed)
        m_everListed.insert(one.calendar.calendarIdentifier);
    m_knowledge = {round.isComplete, {}, deletedCalendars(round), std::move(round.placesOnDisk)};
    return std::move(round.calendars);
}

/// An identifier does not tell where its calendar lay, so nothing can be told of one that was not
/// listed since the start.
std::set<QString> FolderSource::deletedCalendars(const Round &round) {
    std::set<QString> missing;
    for (const QString &one : m_everListed) {
        if (round.isComplete && round.isCertain && !round.present.contains(one))
            missing.insert(one);
    }
    return m_absences.lasting(missing);
}

void FolderSource::lookAtRoot(Round &round) {
    const QByteArray path = files::absolute(QFile::encodeName(m_root.path));
    m_changes.watchForPath(path);
    const QString name = QFile::decodeName(files::nameOf(path));
    const StoreSource source{identifierOfPath("root:" + path),
                             m_root.title.isEmpty() ? name : m_root.title};
    const files::Status status = files::status(path);
    if (m_rootOnDisk && hasLostItsDisk(path, status, *m_rootOnDisk))
        return passOverAndKeep(path, ENODEV, "its disk is not mounted", round);
    if (status.kind == files::Kind::folder || status.kind == files::Kind::file) {
        m_rootOnDisk = placeOf(status);
        m_aboveOnDisk = placeOf(files::status(files::folderOf(path)));
    }
    switch (status.kind) {
    case files::Kind::folder:
        return lookAtFolder(path, source, round);
    case files::Kind::file:
        return addCalendar(source, path, true, round);
    case files::Kind::missing:
        return missRoot(path, round);
    case files::Kind::other:
        return passOver(path, EINVAL, "no calendars", round);
    case files::Kind::unreadable:
        return passOverAndKeep(path, status.error, "no calendars", round);
    }
}

/// Gone for certain is only what lay in a folder that is still the same one: a disk may have been
/// taken off anywhere above. On a disk's top folder not even that tells enough, since numbers of
/// disks are used again.
void FolderSource::missRoot(const QByteArray &path, Round &round) {
    round.isCertain = false;
    const QByteArray above = files::folderOf(path);
    const bool isGone = m_aboveOnDisk && !files::isBehindBrokenLink(path) &&
                        placeOf(files::status(above)) == *m_aboveOnDisk &&
                        !files::isMountPoint(above);
    if (!isGone && !m_listed.empty())
        return passOverAndKeep(path, ENOENT, "no calendars", round);
    // Nobody need have a home for calendars, but one that is gone may come back.
    if (!m_root.isCalendarHome)
        passOver(path, ENOENT, "no calendars", round);
}

/// What lies in a folder decides what it is: with items in it a calendar; with folders in it those
/// are calendars, unless it is one itself and they hold nothing that a calendar would.
void FolderSource::lookAtFolder(const QByteArray &path, const StoreSource &source, Round &round) {
    m_changes.watch(files::resolved(path));
    int error = 0;
    auto entries = files::list(path, files::Detail::kind, error);
    if (!entries)
        return passOverAndKeep(path, error, "folder not read", round);
    m_troubles.remove(path);
    if (entries->empty()) {
        round.isCertain = false;
        round.isComplete = round.isComplete && m_root.isCalendarHome;
    }
    for (const QByteArray &name : files::brokenLinks(path)) {
        round.isComplete = false;
        m_changes.watchForPath(path + '/' + name);
        if (listedAt(path + '/' + name))
            entries->push_back({name, true});
    }
    std::erase_if(*entries, [](const auto &entry) { return entry.name.endsWith(".tmp"); });
    std::sort(entries->begin(), entries->end(),
              [](const auto &left, const auto &right) { return left.name < right.name; });
    const bool hasItems = std::any_of(entries->begin(), entries->end(), isItem);
    const bool hasFolders = std::any_of(entries->begin(), entries->end(),
                                        [](const auto &entry) { return entry.isFolder; });
    if (hasItems || (!hasFolders && !m_root.isCalendarHome))
        addCalendar(source, path, false, round);
    for (const files::Entry &entry : *entries) {
        const QByteArray inner = path + '/' + entry.name;
        if (!entry.isFolder)
            continue;
        if (m_root.isCalendarHome || !hasItems || looksLikeCalendar(inner))
            addCalendar(source, inner, false, round);
        else if (isEmptyOrUnreadable(inner) && listedAt(inner))
            addCalendar(source, inner, false, round);
        else if (isEmptyOrUnreadable(inner))
            round.isCertain = false;
    }
}

const SourceCalendar *FolderSource::listedAt(const QByteArray &path) const {
    const auto listed = std::find_if(m_listed.begin(), m_listed.end(),
                                     [identifier = identifierOfPath(path)](const auto &one) {
                                         return one.calendar.calendarIdentifier == identifier;
                                     });
    return listed == m_listed.end() ? nullptr : &*listed;
}

void FolderSource::passOver(const QByteArray &path, int error, const char *what, Round &round) {
    round.isComplete = false;
    noteTrouble(path, error, what);
}

void FolderSource::passOverAndKeep(const QByteArray &path, int error, const char *what,
                                   Round &round) {
    passOver(path, error, what, round);
    for (const SourceCalendar &calendar : m_listed)
        keep(calendar, round);
}

void FolderSource::keep(const SourceCalendar &calendar, Round &round) {
    const QString &identifier = calendar.calendar.calendarIdentifier;
    Place place = m_places.value(identifier);
    round.present.insert(identifier);
    if (place.onDisk != PlaceOnDisk()) {
        round.seen.insert(place.onDisk);
        round.placesOnDisk.emplace(identifier, place.onDisk);
    }
    place.isAway = true;
    round.places.insert(identifier, std::move(place));
    round.calendars.push_back(calendar);
    round.calendars.back().hasChanges = false;
    round.calendars.back().rewrittenItems.clear();
}

void FolderSource::addCalendar(const StoreSource &source, const QByteArray &path, bool isFile,
                               Round &round) {
    const files::Status status = files::status(path);
    round.present.insert(identifierOfPath(path));
    if (const auto *const listed = listedAt(path);
        listed && (status.error != 0 ||
                   hasLostItsDisk(path, status,
                                  m_places.value(listed->calendar.calendarIdentifier).onDisk))) {
        round.isComplete = false;
        noteTrouble(path, status.error != 0 ? status.error : ENODEV, "calendar out of reach");
        return keep(*listed, round);
    }
    const PlaceOnDisk onDisk = placeOf(status);
    const bool isPlaceKnown = status.error == 0;
    if (isPlaceKnown && !round.seen.insert(onDisk).second)
        return;
    SourceCalendar calendar;
    calendar.calendar = isFile ? describeFile(path) : describeFolder(path);
    calendar.calendar.source = source;
    calendar.isDescribedByText = isFile;

    const QString &identifier = calendar.calendar.calendarIdentifier;
    Place place{files::resolved(path), onDisk, isFile, {}, false};
    const QByteArray folder = place.folder();
    m_changes.watch(folder, isFile ? files::nameOf(place.path) : QByteArray());
    const auto known = m_places.constFind(identifier);
    if (known != m_places.constEnd()) {
        if (known->isAway)
            m_troubles.remove(path);
        place.linkedFiles = known->linkedFiles;
        watchLinks(place);
    }
    calendar.hasChanges = known == m_places.constEnd() || known->isAway ||
                          known->path != place.path || known->onDisk != onDisk ||
                          isTouched(round.changes, folder, place.linkedFiles);
    if (const auto rewritten = round.changes.rewritten.find(folder);
        rewritten != round.changes.rewritten.end())
        calendar.rewrittenItems = rewritten->second;
    round.places.insert(identifier, std::move(place));
    if (isPlaceKnown)
        round.placesOnDisk.emplace(identifier, onDisk);
    round.calendars.push_back(std::move(calendar));
}

QString FolderSource::trouble() const {
    for (auto one = m_troubles.begin(); one != m_troubles.end(); ++one) {
        const bool isGone = files::status(one.key()).kind == files::Kind::missing;
        if (!isGone || one.value() == ENOENT)
            return QStringLiteral("%1 could not be read in full (%2); events may be missing")
                .arg(QFile::decodeName(one.key()),
                     QString::fromLocal8Bit(std::strerror(one.value())));
    }
    return {};
}

std::optional<std::vector<SourceItem>> FolderSource::items(const QString &calendarIdentifier) {
    Place &place = m_places[calendarIdentifier];
    if (place.isAway)
        return std::nullopt;
    int error = 0;
    const auto entries = files::list(place.folder(), files::Detail::version, error);
    if (!entries) {
        noteTrouble(place.path, error, "folder not read");
        return std::nullopt;
    }
    m_troubles.remove(place.path);
    std::vector<SourceItem> items;
    std::set<QByteArray> linkedFiles;
    const QByteArray only = files::nameOf(place.path);
    for (const files::Entry &entry : *entries) {
        if (place.isFile ? entry.name != only : !isItem(entry))
            continue;
        items.push_back({entry.name, {entry.modified, entry.size, entry.inode}});
        if (entry.isLink)
            linkedFiles.insert(files::resolved(place.pathOf(entry.name)));
    }
    if (linkedFiles != place.linkedFiles) {
        place.linkedFiles = std::move(linkedFiles);
        watchLinks(place);
    }
    return items;
}

std::optional<QByteArray> FolderSource::text(const QString &calendarIdentifier,
                                             const QByteArray &item) {
    const Place place = m_places.value(calendarIdentifier);
    if (place.isAway)
        return std::nullopt;
    const QByteArray path = place.pathOf(item);
    int error = 0;
    auto text = files::read(path, maximumFileSize, error);
    if (!text && error != ENOENT)
        noteTrouble(path, error, "file not read");
    else if (text && text->size() >= maximumFileSize)
        noteTrouble(path, EFBIG, "only the first 32 MB of the file are read");
    else
        m_troubles.remove(path);
    return text;
}

QString FolderSource::description(const QString &calendarIdentifier, const QByteArray &item) const {
    return QFile::decodeName(m_places.value(calendarIdentifier).pathOf(item));
}

/// A link's own folder does not tell when the file changes that it leads to.
void FolderSource::watchLinks(const Place &place) {
    for (const QByteArray &file : place.linkedFiles)
        m_changes.watch(files::folderOf(file), files::nameOf(file));
}

void FolderSource::noteTrouble(const QByteArray &path, int error, const char *what) {
    // What is missing announces itself when it comes, and a size or a kind when it changes.
    if (error != ENOENT && error != EINVAL && error != EFBIG)
        m_changes.tryAgainLater();
    if (m_troubles.value(path) == error)
        return;
    m_troubles.insert(path, error);
    qCWarning(eventStoreLog).noquote().nospace()
        << logText(path) << ": " << what << " (" << std::strerror(error) << ")";
}

} // namespace vantrel
