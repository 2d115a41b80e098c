#pragma once

#include "WatchDescriptor.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

struct inotify_event;

namespace vantrel {

/// Notices what happens in folders, by inotify. Made and destroyed on the main thread, where it
/// also reports; folders may be added from any thread.
class FolderWatch {
public:
    struct Event {
        QByteArray folder;
        QByteArray name;          ///< Empty when the folder itself is meant.
        bool isRewritten = false; ///< What the file holds may be different.
    };

    /// What happened since the last report; without a value everything may have.
    using Report = std::function<void(const std::optional<std::vector<Event>> &)>;

    explicit FolderWatch(Report report, std::shared_ptr<WatchDescriptor> descriptor =
                                            std::make_shared<WatchDescriptor>());
    FolderWatch(const FolderWatch &) = delete;
    FolderWatch &operator=(const FolderWatch &) = delete;
    ~FolderWatch();

    /// Begins to watch a folder, or goes on; with a `name`, for the sake of that name alone. What
    /// happens after the call returns is reported. False when the system allows no more watches.
    bool add(const QByteArray &folder, const QByteArray &name = {});

    /// Ends all watches that were not added since the last call of this.
    void sweep();

private:
    friend class WatchDescriptor;

    /// What counts in a folder.
    struct Interest {
        bool isWhole = false;       ///< Every name in it.
        std::set<QByteArray> names; ///< Those that count when not all do.

        [[nodiscard]] bool covers(const QByteArray &name) const;
    };

    /// By path: one folder may go by several.
    using Interests = std::map<QByteArray, Interest>;

    struct Folder {
        Interests added; ///< Since the last sweep.
        /// From before it. They count until the next one: what happens while folders are being
        /// added again must not go by.
        Interests former;
    };

    /// Under the descriptor's mutex.
    void take(const inotify_event &event, std::vector<Event> &events);
    void letGo(int folder);

    const Report m_report;
    const std::shared_ptr<WatchDescriptor> m_descriptor;
    std::map<int, Folder> m_folders; ///< Guarded by the descriptor's mutex.
};

} // namespace vantrel
