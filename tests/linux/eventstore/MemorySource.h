#pragma once

#include <linux/eventstore/source/ComponentSource.h>

#include <map>
#include <set>

namespace vantrel::tests {

/// Calendars in memory, whose items come, change and go.
class MemorySource : public ComponentSource {
public:
    struct Item {
        QByteArray text;
        std::int64_t modified = 0;
        std::uint64_t serial = 0; ///< Grows when it is written again at the same time.
    };

    using Items = std::map<QByteArray, Item>; ///< By name.

    std::map<QString, Items> content; ///< By calendar.
    std::set<QByteArray> unreadable;  ///< Names of items.

    void start() override {}

    std::vector<SourceCalendar> calendars() override {
        std::vector<SourceCalendar> calendars;
        for (const auto &[identifier, items] : content) {
            calendars.emplace_back();
            calendars.back().calendar.calendarIdentifier = identifier;
        }
        return calendars;
    }

    std::optional<std::vector<SourceItem>> items(const QString &calendar) override {
        std::vector<SourceItem> items;
        for (const auto &[name, item] : content[calendar])
            items.push_back({name, {item.modified, item.text.size(), item.serial}});
        return items;
    }

    std::optional<QByteArray> text(const QString &calendar, const QByteArray &name) override {
        const Items &items = content[calendar];
        const auto item = items.find(name);
        if (item == items.end() || unreadable.contains(name))
            return std::nullopt;
        return item->second.text;
    }

    QString description(const QString &, const QByteArray &item) const override {
        return QString::fromUtf8(item);
    }
};

} // namespace vantrel::tests
