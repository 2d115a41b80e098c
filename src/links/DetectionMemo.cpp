#include "DetectionMemo.h"

#include <algorithm>
#include <cstdint>

namespace vantrel {

namespace {

using Text = std::optional<QString>;

/// Hashing looks at so many characters of a text, from end to end: invitations of one service
/// differ in a few places only, and reading all of a text would cost more than comparing it once.
constexpr qsizetype samples = 24;

/// The rest of an entry: both links and the map's own.
constexpr std::size_t entryBytes = 512;

void mix(std::size_t &hash, std::size_t value) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15; // 2^64 divided by the golden ratio
    hash = (hash ^ value) * factor;
    hash ^= hash >> 32;
}

void mixText(std::size_t &hash, const QString *text) {
    if (!text) {
        mix(hash, 1);
        return;
    }
    const qsizetype size = text->size();
    mix(hash, static_cast<std::size_t>(size) + 2);
    const QChar *characters = text->constData();
    if (size <= samples) {
        for (qsizetype position = 0; position < size; ++position)
            mix(hash, characters[position].unicode());
        return;
    }
    // Four characters a step.
    for (qsizetype sample = 0; sample < samples; sample += 4) {
        std::size_t four = 0;
        for (qsizetype within = sample; within < sample + 4; ++within)
            four = four << 16 | characters[(size - 1) * within / (samples - 1)].unicode();
        mix(hash, four);
    }
}

const QString *textOf(const Text &text) {
    return text ? &*text : nullptr;
}

const QString *textOf(const std::optional<Url> &url) {
    return url ? &url->absoluteString() : nullptr;
}

std::size_t hashOf(const QString *url, const QString *location, const QString *notes,
                   QLocale::Territory territory) {
    std::size_t hash = static_cast<std::size_t>(territory);
    mixText(hash, url);
    mixText(hash, location);
    mixText(hash, notes);
    return hash;
}

bool isSame(const QString *left, const QString *right) {
    if (!left || !right)
        return left == right;
    return left->size() == right->size() &&
           (left->constData() == right->constData() || *left == *right);
}

/// A text without storage of its own (a literal, raw data) may change or go away behind our back.
Text ownText(const QString *text) {
    if (!text)
        return std::nullopt;
    return text->capacity() > 0 ? *text : QString(text->constData(), text->size());
}

} // namespace

DetectionMemo::Key::Key(const Inputs &inputs)
    : url(ownText(textOf(inputs.url))),
      location(ownText(textOf(inputs.location))),
      notes(ownText(textOf(inputs.notes))),
      territory(inputs.territory) {}

std::size_t DetectionMemo::Key::bytes() const {
    std::size_t bytes = entryBytes;
    for (const Text *text : {&url, &location, &notes}) {
        if (*text)
            bytes += static_cast<std::size_t>((*text)->size()) * sizeof(QChar);
    }
    return bytes;
}

/// The URL does not count: the detection may share it.
bool DetectionMemo::Key::isHeldByNobodyElse() const {
    return (!location || location->isDetached()) && (!notes || notes->isDetached());
}

std::size_t DetectionMemo::Hash::operator()(const Key &key) const {
    return hashOf(textOf(key.url), textOf(key.location), textOf(key.notes), key.territory);
}

std::size_t DetectionMemo::Hash::operator()(const Inputs &inputs) const {
    return hashOf(textOf(inputs.url), textOf(inputs.location), textOf(inputs.notes),
                  inputs.territory);
}

bool DetectionMemo::Equal::operator()(const Key &left, const Key &right) const {
    return left.territory == right.territory && isSame(textOf(left.url), textOf(right.url)) &&
           isSame(textOf(left.location), textOf(right.location)) &&
           isSame(textOf(left.notes), textOf(right.notes));
}

bool DetectionMemo::Equal::operator()(const Key &key, const Inputs &inputs) const {
    return key.territory == inputs.territory && isSame(textOf(key.url), textOf(inputs.url)) &&
           isSame(textOf(key.location), textOf(inputs.location)) &&
           isSame(textOf(key.notes), textOf(inputs.notes));
}

std::optional<LinkDetector::Detection> DetectionMemo::find(const Inputs &inputs) const {
    const std::scoped_lock lock(m_mutex);
    const auto found = m_entries.find(inputs);
    if (found == m_entries.end())
        return std::nullopt;
    return found->second;
}

void DetectionMemo::add(const Inputs &inputs, const LinkDetector::Detection &detection) {
    Key key(inputs);
    const std::size_t bytes = key.bytes();
    const std::scoped_lock lock(m_mutex);
    if (bytes > m_limits.most || !m_entries.try_emplace(std::move(key), detection).second)
        return;
    m_bytes += bytes;
    if (++m_additions >= m_limits.tidiedEvery || m_bytes > m_limits.most)
        tidy();
}

void DetectionMemo::tidy() {
    m_additions = 0;
    std::size_t alone = 0;
    for (const auto &[key, detection] : m_entries)
        alone += key.isHeldByNobodyElse() ? key.bytes() : 0;
    for (auto entry = m_entries.begin(); entry != m_entries.end() && alone > m_limits.mostAlone;) {
        const bool isAlone = entry->first.isHeldByNobodyElse();
        alone -= isAlone ? entry->first.bytes() : 0;
        entry = isAlone ? drop(entry) : std::next(entry);
    }
    // Half, so that room is made once and not at every addition.
    if (m_bytes > m_limits.most) {
        while (m_bytes > m_limits.most / 2)
            drop(m_entries.begin());
    }
}

DetectionMemo::Entries::iterator DetectionMemo::drop(Entries::iterator entry) {
    m_bytes -= entry->first.bytes();
    return m_entries.erase(entry);
}

std::size_t DetectionMemo::size() const {
    const std::scoped_lock lock(m_mutex);
    return m_entries.size();
}

std::size_t DetectionMemo::bytes() const {
    const std::scoped_lock lock(m_mutex);
    return m_bytes;
}

} // namespace vantrel
