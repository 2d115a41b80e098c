#pragma once

#include "LinkDetector.h"

#include <QLocale>
#include <QString>

#include <cstddef>
#include <mutex>
#include <optional>
#include <unordered_map>

namespace vantrel {

/// Remembers what was found in which texts: the list of upcoming events is made anew often, from
/// texts that hardly ever change. Any thread.
///
/// Texts are shared, not copied, so a text that the calendar holds as well costs nothing; texts
/// that nobody else holds any more are dropped beyond `mostAlone` bytes, everything beyond `most`.
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
    explicit DetectionMemo(Limits limits) : m_limits(limits) {}

    [[nodiscard]] std::optional<LinkDetector::Detection> find(const Inputs &inputs) const;
    void add(const Inputs &inputs, const LinkDetector::Detection &detection);

    [[nodiscard]] std::size_t size() const;

    /// Of the texts and the entries, whoever else shares them.
    [[nodiscard]] std::size_t bytes() const;

private:
    struct Key {
        explicit Key(const Inputs &inputs);

        std::optional<QString> url;
        std::optional<QString> location;
        std::optional<QString> notes;
        QLocale::Territory territory;

        [[nodiscard]] std::size_t bytes() const;
        [[nodiscard]] bool isHeldByNobodyElse() const;
    };

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const Key &key) const;
        std::size_t operator()(const Inputs &inputs) const;
    };

    struct Equal {
        using is_transparent = void;
        bool operator()(const Key &left, const Key &right) const;
        bool operator()(const Key &key, const Inputs &inputs) const;
        bool operator()(const Inputs &inputs, const Key &key) const { return (*this)(key, inputs); }
    };

    using Entries = std::unordered_map<Key, LinkDetector::Detection, Hash, Equal>;

    void tidy();
    Entries::iterator drop(Entries::iterator entry);

    const Limits m_limits;
    mutable std::mutex m_mutex;
    Entries m_entries;
    std::size_t m_bytes = 0;
    int m_additions = 0; ///< Since the last tidying.
};

} // namespace vantrel
