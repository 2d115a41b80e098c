#include "DetectionMemo.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>

namespace vantrel {

namespace {

using Text = std::optional<QString>;

/// Hashing looks at so many characters of a text, from end to end: invitations of one service
/// differ in a few places only, and reading all of a text would cost more than comparing it once.
constexpr qsizetype samples = 24;

/// The rest of an entry: both links and the containers' own.
constexpr std::size_t entryBytes = 512;

/// Entries whose places collide share so many neighbouring ones: those of one cache line.
constexpr std::size_t places = 8;

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

bool isSameStorage(const QString *left, const QString *right) {
    if (!left || !right)
        return left == right;
    return left->constData() == right->constData() && left->size() == right->size();
}

bool isEqualText(const QString *left, const QString *right) {
    return isSameStorage(left, right) || (left && right && *left == *right);
}

/// A text without storage of its own (a literal, raw data) may change or go away behind our back.
Text ownText(const QString *text) {
    if (!text)
        return std::nullopt;
    return text->capacity() > 0 ? *text : QString(text->constData(), text->size());
}

const QString *pointerTo(const Text &text) {
    return text ? &*text : nullptr;
}

} // namespace

std::size_t DetectionMemo::Texts::contentHash() const {
    std::size_t hash = static_cast<std::size_t>(territory);
    for (const QString *text : {url, location, notes})
        mixText(hash, text);
    return hash;
}

std::size_t DetectionMemo::Texts::storageHash() const {
    std::size_t hash = static_cast<std::size_t>(territory);
    for (const QString *text : {url, location, notes})
        mix(hash, text ? reinterpret_cast<std::uintptr_t>(text->constData()) : 0);
    return hash;
}

bool DetectionMemo::Texts::shareStorageWith(const Texts &other) const {
    return territory == other.territory && isSameStorage(notes, other.notes) &&
           isSameStorage(location, other.location) && isSameStorage(url, other.url);
}

bool DetectionMemo::Texts::areEqualTo(const Texts &other) const {
    return territory == other.territory && isEqualText(url, other.url) &&
           isEqualText(location, other.location) && isEqualText(notes, other.notes);
}

std::size_t DetectionMemo::Texts::bytes() const {
    std::size_t characters = 0;
    for (const QString *text : {url, location, notes})
        characters += text ? static_cast<std::size_t>(text->size()) : 0;
    return characters * sizeof(QChar);
}

DetectionMemo::Entry::Entry(const Texts &texts, const LinkDetector::Detection &found)
    : territory(texts.territory), detection(found) {
    share(texts);
}

void DetectionMemo::Entry::share(const Texts &texts) {
    url = ownText(texts.url);
    location = ownText(texts.location);
    notes = ownText(texts.notes);
}

DetectionMemo::Texts DetectionMemo::Entry::texts() const {
    return {pointerTo(url), pointerTo(location), pointerTo(notes), territory};
}

std::size_t DetectionMemo::Entry::bytes() const {
    return entryBytes + texts().bytes();
}

/// The URL does not count: the detection may share it.
bool DetectionMemo::Entry::isHeldByNobodyElse() const {
    return (!location || location->isDetached()) && (!notes || notes->isDetached());
}

DetectionMemo::DetectionMemo(Limits limits) : m_limits(limits) {}

DetectionMemo::Texts DetectionMemo::textsOf(const Inputs &inputs) {
    return {inputs.url ? &inputs.url->absoluteString() : nullptr, pointerTo(inputs.location),
            pointerTo(inputs.notes), inputs.territory};
}

std::optional<LinkDetector::Detection> DetectionMemo::find(const Inputs &inputs) {
    const Texts texts = textsOf(inputs);
    const std::scoped_lock lock(m_mutex);
    if (const Entry *entry = entryWithStorageOf(texts))
        return entry->detection;
    Entry *entry = entryEqualTo(texts);
    if (!entry)
        return std::nullopt;
    // The calendar has read its texts again and let go of the former ones.
    if (entry->isHeldByNobodyElse()) {
        entry->share(texts);
        rememberStorageOf(*entry);
    }
    return entry->detection;
}

void DetectionMemo::add(const Inputs &inputs, const LinkDetector::Detection &detection) {
    const Texts texts = textsOf(inputs);
    const std::scoped_lock lock(m_mutex);
    if (entryEqualTo(texts)) // another thread was faster
        return;
    const auto added = m_entries.emplace(texts.contentHash(), Entry(texts, detection));
    m_bytes += added->second.bytes();
    if (++m_additions >= m_limits.tidiedEvery || m_bytes > m_limits.most)
        tidy();
    else if (m_byStorage.size() < m_entries.size() * 2)
        rebuildStorage();
    else
        rememberStorageOf(added->second);
}

/// An entry keeps its texts alive, so what is stored at the same address is the same text.
const DetectionMemo::Entry *DetectionMemo::entryWithStorageOf(const Texts &texts) const {
    if (m_byStorage.empty())
        return nullptr;
    const std::size_t first = texts.storageHash() & (m_byStorage.size() - places);
    for (std::size_t place = first; place < first + places && m_byStorage[place]; ++place) {
        if (m_byStorage[place]->texts().shareStorageWith(texts))
            return m_byStorage[place];
    }
    return nullptr;
}

DetectionMemo::Entry *DetectionMemo::entryEqualTo(const Texts &texts) {
    const auto [first, last] = m_entries.equal_range(texts.contentHash());
    const auto found = std::find_if(first, last, [&](const auto &candidate) {
        return candidate.second.texts().areEqualTo(texts);
    });
    return found == last ? nullptr : &found->second;
}

void DetectionMemo::rememberStorageOf(const Entry &entry) {
    const std::size_t first = entry.texts().storageHash() & (m_byStorage.size() - places);
    std::size_t place = first;
    while (place < first + places - 1 && m_byStorage[place])
        ++place;
    m_byStorage[place] = &entry;
}

void DetectionMemo::rebuildStorage() {
    std::size_t size = places;
    while (size < m_entries.size() * 4)
        size *= 2;
    m_byStorage.assign(size, nullptr);
    for (const auto &[hash, entry] : m_entries)
        rememberStorageOf(entry);
}

void DetectionMemo::tidy() {
    m_additions = 0;
    std::size_t alone = 0;
    for (const auto &[hash, entry] : m_entries)
        alone += entry.isHeldByNobodyElse() ? entry.bytes() : 0;
    for (auto next = m_entries.begin(); next != m_entries.end() && alone > m_limits.mostAlone;) {
        const bool isAlone = next->second.isHeldByNobodyElse();
        alone -= isAlone ? next->second.bytes() : 0;
        next = isAlone ? drop(next) : std::next(next);
    }
    // Half, so that room is made once and not at every addition.
    if (m_bytes > m_limits.most) {
        while (m_bytes > m_limits.most / 2)
            drop(m_entries.begin());
    }
    rebuildStorage();
}

DetectionMemo::Entries::iterator DetectionMemo::drop(Entries::iterator entry) {
    m_bytes -= entry->second.bytes();
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
