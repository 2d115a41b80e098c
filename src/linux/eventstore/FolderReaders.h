#pragma once

#include "EventIndex.h"
#include "SourceReader.h"

#include <linux/eventstore/folders/FolderSource.h>

#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

class ReaderThreads;

/// A source and a reader for each folder or file that is named: one on a disk that does not answer
/// keeps no other waiting. Main thread only.
class FolderReaders {
public:
    using MakeSource = std::function<std::unique_ptr<ComponentSource>(const FolderRoot &)>;
    using Reader = std::unique_ptr<SourceReader>;

    /// `threads` outlives the readers.
    FolderReaders(ReaderThreads &threads, MakeSource makeSource, SourceReader::Finished finished);

    /// What is named anew gets a reader, which `start` is called for; what is no longer named loses
    /// it. The others go on as they are. A place named twice counts once.
    void follow(const std::vector<FolderRoot> &roots, const QStringList &addresses,
                const std::function<void(SourceReader &)> &start);

    [[nodiscard]] const std::vector<Reader> &readers() const { return m_readers; }

    /// What all of them found, in the order of the roots. Of calendars that lie at one place the
    /// first counts.
    [[nodiscard]] EventIndex::Calendars calendars() const;

private:
    ReaderThreads &m_threads;
    const MakeSource m_makeSource;
    const SourceReader::Finished m_finished;
    std::vector<FolderRoot> m_roots;
    QSet<QString> m_ownIdentifiers; ///< Of calendars that the roots themselves may be.
    std::vector<Reader> m_readers;  ///< Of the roots, in their order.
};

} // namespace vantrel
