#include "FolderReaders.h"

#include <linux/eventstore/files/Files.h>
#include <linux/eventstore/folders/FolderDescription.h>

#include <QFile>

#include <algorithm>
#include <set>
#include <utility>

namespace vantrel {

namespace {

QByteArray pathOf(const FolderRoot &root) {
    return files::absolute(QFile::encodeName(root.path));
}

std::vector<FolderRoot> withoutRepetitions(const std::vector<FolderRoot> &roots) {
    std::vector<FolderRoot> single;
    std::set<QByteArray> paths;
    for (const FolderRoot &root : roots) {
        if (paths.insert(pathOf(root)).second)
            single.push_back(root);
    }
    return single;
}

} // namespace

FolderReaders::FolderReaders(ReaderThreads &threads, MakeSource makeSource,
                             SourceReader::Finished finished)
    : m_threads(threads), m_makeSource(std::move(makeSource)), m_finished(std::move(finished)) {}

void FolderReaders::follow(const std::vector<FolderRoot> &roots, const QStringList &addresses,
                           const std::function<void(SourceReader &)> &start) {
    const auto formerRoots = std::exchange(m_roots, withoutRepetitions(roots));
    m_ownIdentifiers.clear();
    for (const FolderRoot &root : m_roots)
        m_ownIdentifiers.insert(identifierOfPath(pathOf(root)));
    auto former = std::exchange(m_readers, {});
    for (const FolderRoot &root : m_roots) {
        const auto known = std::find(formerRoots.begin(), formerRoots.end(), root);
        if (known != formerRoots.end()) {
            m_readers.push_back(
                std::move(former[static_cast<std::size_t>(known - formerRoots.begin())]));
            m_readers.back()->setAddresses(addresses);
        } else {
            m_readers.push_back(std::make_unique<SourceReader>(m_makeSource(root), addresses,
                                                               m_threads, m_finished));
            start(*m_readers.back());
        }
    }
}

EventIndex::Calendars FolderReaders::calendars() const {
    EventIndex::Calendars all;
    std::set<QString> identifiers;
    std::set<PlaceOnDisk> places;
    for (const Reader &reader : m_readers) {
        EventIndex::Calendars its = reader->calendars();
        SourceKnowledge &known = its.knowledge.front();
        for (auto &calendar : its.list) {
            const QString &identifier = calendar->calendar().calendarIdentifier;
            const auto place = known.places.find(identifier);
            if (identifiers.insert(identifier).second &&
                (place == known.places.end() || places.insert(place->second).second))
                all.list.push_back(std::move(calendar));
        }
        // What is named by itself is waited for, though it lies in a folder that is here.
        std::erase_if(known.deletedCalendars, [this](const QString &identifier) {
            return m_ownIdentifiers.contains(identifier);
        });
        all.knowledge.push_back(std::move(known));
    }
    return all;
}

} // namespace vantrel
