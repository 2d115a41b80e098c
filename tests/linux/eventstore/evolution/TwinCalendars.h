#pragma once

#include "EvolutionFixture.h"
#include "LoopbackServers.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::tests {

/// The same calendars twice, each with a store that watches: with Evolution Data Server, and as
/// folders of files. What a test writes goes to both, there by another process, as the user's other
/// programs and the servers would, and here as files.
class TwinCalendars : public EvolutionFixture {
protected:
    enum class Kind {
        local,        ///< Evolution's own.
        account,      ///< On a CalDAV server.
        subscription, ///< A file on a web server.
        birthdays     ///< Of an address book.
    };

    TwinCalendars();

    /// Reads both. What was put before is there already.
    void beginBoth();

    /// Puts an item there, in place of the one of that name, which is its UID too: an event, or a
    /// series with its overrides.
    void put(Kind kind, const QByteArray &name, const QByteArray &components);
    void remove(Kind kind, const QByteArray &name);

    /// Removes one occurrence, named by its recurrence id, of an item that is `components` then.
    void removeOccurrence(Kind kind, const QByteArray &name, const QByteArray &recurrenceId,
                          const QByteArray &components);

    /// Puts someone into the address book, in place of the one of that name, and their birthday as
    /// `components` into the folder.
    void putBirthday(const QByteArray &name, const QByteArray &day, const QByteArray &components);

    /// Waits until both show just these meetings of the 14 days from `now` on, as "03-02 09:00
    /// Title" in the fixture's zone, and compares them event by event, at every moment at which a
    /// list may change: at each start, and a second before and after it.
    void expectMeetings(const char *now, const std::vector<std::string> &expected);

    /// The same of the birthdays, which are no meetings: as the store has them.
    void expectBirthdays(const std::vector<std::string> &expected);

private:
    using Overview = std::function<std::vector<std::string>(const EventStore &)>;

    void settleBoth(const Overview &overview, const std::vector<std::string> &expected);
    void compareAt(Instant now) const;
    [[nodiscard]] std::vector<std::string> birthdays(const EventStore &ofStore) const;

    [[nodiscard]] static QString placeOf(Kind kind);
    [[nodiscard]] static QString fileOf(Kind kind, const QByteArray &name);
    void writeFile(Kind kind, const QByteArray &name, const QByteArray &components);
    /// What servers have got is fetched at once: nobody waits a minute for the service to look.
    void passOn(Kind kind);

    CalendarFiles m_files;
    CalDavServer m_caldav;
    WebServer m_web;
    std::map<QByteArray, QByteArray> m_page; ///< The items of the subscription.
    std::unique_ptr<LocalEventStore> m_folders;
};

} // namespace vantrel::tests
