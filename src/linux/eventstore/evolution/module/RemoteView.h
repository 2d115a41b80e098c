#pragma once

#include "RemoteCalendar.h"

#include <QByteArray>
#include <QByteArrayList>

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

/// What a query finds in a calendar, as the calendar factory tells it.
class RemoteView : public std::enable_shared_from_this<RemoteView> {
public:
    enum class Telling { everything, laterChanges };

    struct ComponentName {
        QByteArray uid;
        QByteArray recurrenceId; ///< Empty for a master.
    };

    struct Listener {
        std::function<void()> begun; ///< From here on nothing is missed.
        /// VEVENT blocks that came or are different.
        std::function<void(const QByteArrayList &components)> told;
        std::function<void(const std::vector<ComponentName> &names)> removed;
        std::function<void()> completed; ///< All that there was has been told.
        std::function<void(const QByteArray &message)> failed;
    };

    RemoteView(std::shared_ptr<RemoteCalendar> calendar, Listener listener);
    RemoteView(const RemoteView &) = delete;
    RemoteView &operator=(const RemoteView &) = delete;
    ~RemoteView();

    void open(const QByteArray &query, Telling telling);

private:
    void follow(const QByteArray &path, Telling telling);
    void begin();
    void hear(const QByteArray &signal, GVariant *arguments) const;

    const std::shared_ptr<RemoteCalendar> m_calendar;
    const Listener m_listener;
    std::unique_ptr<BusObject> m_view;
};

} // namespace vantrel
