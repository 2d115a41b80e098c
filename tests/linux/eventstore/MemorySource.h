#pragma once

#include <linux/eventstore/source/ComponentSource.h>

#include <map>
#include <utility>

namespace vantrel::tests {

/// Calendars in memory, whose items come, change and go.
class MemorySource : public ComponentSource {
public:
    using Items = std::map<QByteArray, std::pair<QByteArray, std::int64_t>>; ///< Text and version.

    std::map<QString, Items> content;

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
            items.push_back({name, {item.second, item.first.size(), 0}});
        return items;
    }

    std::optional<QByteArray> text(const QString &calendar, const QByteArray &name) override {
        return content[calendar][name].first;
    }

    QString description(const QString &, const QByteArray &item) const override {
        return QString::fromUtf8(item);
    }
};

} // namespace vantrel::tests
