#pragma once

#include "LinkDetector.h"

#include <QLocale>
#include <QString>

#include <cstddef>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

namespace vantrel {

/// Remembers what was found in which texts: the list of upcoming events is made anew often, from
/// texts that hardly ever change. Any thread.
///
/// Texts are shared, not copied, so a text that the calendar holds as well costs nothing; texts
/// that nobody else holds any more are dropped beyond `mostAlone` bytes, everything beyond `most`.
/// A text that shares its storage with a remembered one is known without being read.
class DetectionMemo {
public:
    struct Limits {
        std::size_t mostAlone = std::size_t(1) << 20;
        std::size_t most = std::size_t(8) << 20;
        int tidiedEvery = 256; ///< In additions.
    };

    /// What a detection depends on.
    struct Inputs {
        const std::optional<Url> &url;
        const std::optional<QString> &location;
        const std::optional<QString> &notes;
        QLocale::Territory territory;
    };

    DetectionMemo() : DetectionMemo(Limits()) {}
    explicit DetectionMemo(Limits limits);

    [[nodiscard]] std::optional<LinkDetector::Detection> find(const Inputs &inputs);
    void add(const Inputs &inputs, const LinkDetector::Detection &detection);

    [[nodiscard]] std::size_t size() const;

    /// Of the texts and the entries, whoever else shares them.
    [[nodiscard]] std::size_t bytes() const;

private:
    /// The same inputs as texts; null for what is absent.
    struct Texts {
        const QString *url;
        const QString *location;
        const QString *notes;
        QLocale::Territory territory;

        [[nodiscard]] std::size_t contentHash() const;
        [[nodiscard]] std::size_t storageHash() const;
        [[nodiscard]] bool shareStorageWith(const Texts &other) const;
        [[nodiscard]] bool areEqualTo(const Texts &other) const;
        [[nodiscard]] std::size_t bytes() const;
    };

    struct Entry {
        Entry(const Texts &texts, const LinkDetector::Detection &found);

        std::optional<QString> url;
        std::optional<QString> location;
        std::optional<QString> notes;
        QLocale::Territory territory;
        LinkDetector::Detection detection;

        void share(const Texts &texts);
        [[nodiscard]] Texts texts() const;
        [[nodiscard]] std::size_t bytes() const;
        [[nodiscard]] bool isHeldByNobodyElse() const;
    };

    using Entries = std::unordered_multimap<std::size_t, Entry>; ///< By the hash of the content.

    static Texts textsOf(const Inputs &inputs);
    [[nodiscard]] const Entry *entryWithStorageOf(const Texts &texts) const;
    [[nodiscard]] Entry *entryEqualTo(const Texts &texts);
    void rememberStorageOf(const Entry &entry);
    void rebuildStorage();
    void tidy();
    Entries::iterator drop(Entries::iterator entry);

    const Limits m_limits;
    mutable std::mutex m_mutex;
    Entries m_entries;
    /// The entries by where their texts are stored, several times as many places as entries.
    std::vector<const Entry *> m_byStorage;
    std::size_t m_bytes = 0;
    int m_additions = 0; ///< Since the last tidying.
};

} // namespace vantrel
