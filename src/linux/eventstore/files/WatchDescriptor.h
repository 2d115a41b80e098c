#pragma once

#include <QSocketNotifier>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>

struct inotify_event;

namespace vantrel {

class FolderWatch;

/// An inotify descriptor for any number of `FolderWatch`es: a system allows its users few of them,
/// 128 for all their programs where nobody set another limit. Made and destroyed on the main
/// thread, where its watches report.
class WatchDescriptor : public std::enable_shared_from_this<WatchDescriptor> {
public:
    WatchDescriptor();
    WatchDescriptor(const WatchDescriptor &) = delete;
    WatchDescriptor &operator=(const WatchDescriptor &) = delete;
    ~WatchDescriptor();

private:
    friend class FolderWatch;

    void read();

    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::set<FolderWatch *> m_watches; ///< Of the main thread.

    std::mutex m_mutex; ///< Guards what follows, and the folders of all watches.
    std::map<int, std::set<FolderWatch *>> m_holders; ///< Who watches, by number of the folder.
    std::uint64_t m_endings = 0;                      ///< How many folders were let go of.
};

} // namespace vantrel
