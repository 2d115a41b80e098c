#pragma once

#include <linux/eventstore/folders/FolderSource.h>
#include <platform/AccessPrompt.h>
#include <platform/Time.h>

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace vantrel {

/// What a store reads, for whom, and how far it looks.
struct StoreConfiguration {
    std::vector<FolderRoot> roots;

    /// Further places may have been named, in a file that makes no sense.
    bool mayNameOthers = false;

    QStringList addresses; ///< The user's own, lower case, without "mailto:".

    /// The module that shows the desktop's accounts; without one they are left alone.
    std::optional<QString> evolutionModule;

    /// Where the user wrote the folders and addresses, to be followed while it is edited.
    std::optional<QString> file;

    /// Where the system keeps its time zone, under the name "localtime".
    QByteArray zoneFolder = "/etc";

    /// The window goes from so many days before today's midnight to so many behind it, and moves
    /// along with the clock.
    int daysBefore = 1;
    int daysAfter = 17;

    /// A window that stands still instead, for a question that is asked once.
    std::optional<std::pair<Instant, Instant>> fixedWindow;

    /// What the user has set up: `$XDG_DATA_HOME/Vantrel/calendars`, and the folders and addresses
    /// in `$XDG_CONFIG_HOME/Vantrel/calendars.json`:
    /// `{"folders": ["/path"], "addresses": ["me@example.com"]}`. A file that cannot be read is
    /// logged and passed over; a "~/" at the beginning of a folder means the home folder. Both lie
    /// directly in the folder `profile` instead when one is given, and the desktop's accounts,
    /// which belong to no such profile, are then left alone.
    static StoreConfiguration ofUser(const std::optional<QString> &profile = {});

    /// Those paths and nothing else; the user's addresses all the same.
    static StoreConfiguration ofPaths(const QStringList &paths,
                                      const std::optional<QString> &profile = {});

    /// With what the file says by now; empty, with a log line, while it makes no sense. To be asked
    /// of one with a file alone.
    [[nodiscard]] std::optional<StoreConfiguration> readAgain() const;

    /// Has the desktop's accounts left alone where their service is not installed, without a word
    /// on them: for a question that is asked often, of a machine where none can be.
    void leaveOutMissingService();

    /// What would be read, by name, for a person: the roots, without a look at them, and the
    /// accounts of the desktop as they are set up.
    [[nodiscard]] std::vector<CalendarPlace> places() const;

private:
    void take(const QJsonObject &object);
};

} // namespace vantrel
