#include "BareHost.h"

#include "Characters.h"
#include "PublicSuffixes.h"

#include <algorithm>

namespace vantrel {

using namespace characters;

namespace {

constexpr qsizetype longestName = 253;
constexpr qsizetype longestLabel = 63;

/// Suffixes that end a file name or an abbreviation far more often than a host without a path.
constexpr QLatin1String seldomHosts[] = {
    QLatin1String("cab"), QLatin1String("cc"),  QLatin1String("dot"), QLatin1String("man"),
    QLatin1String("map"), QLatin1String("md"),  QLatin1String("med"), QLatin1String("mk"),
    QLatin1String("ml"),  QLatin1String("mm"),  QLatin1String("mov"), QLatin1String("pl"),
    QLatin1String("ps"),  QLatin1String("pub"), QLatin1String("py"),  QLatin1String("rs"),
    QLatin1String("sh"),  QLatin1String("so"),  QLatin1String("tab"), QLatin1String("tf"),
    QLatin1String("zip")};

/// Products that are named like hosts.
constexpr QLatin1String products[] = {QLatin1String("asp.net"), QLatin1String("ado.net"),
                                      QLatin1String("vb.net"), QLatin1String("ml.net")};

bool isLabel(QStringView label) {
    return !label.isEmpty() && label.size() <= longestLabel && !label.startsWith(u'-') &&
           !label.endsWith(u'-');
}

bool isNumber(QStringView text) {
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return isDigit(c.unicode()) || c == u'.'; });
}

bool isAllLower(QStringView text) {
    return std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isUpper(); });
}

bool isAllUpper(QStringView text) {
    return std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isLower(); });
}

bool isSameName(QStringView name, QLatin1String other) {
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

} // namespace

BareHost::BareHost(QStringView text, qsizetype start, qsizetype end)
    : m_text(text), m_start(start), m_end(end) {}

std::optional<BareHost> BareHost::find(QStringView text, qsizetype start, qsizetype end) {
    const auto isEdge = [](QChar c) { return isOneOf(c.unicode(), u".-_"); };
    const char16_t before = start > 0 ? text[start - 1].unicode() : u' ';
    const char16_t behind = end < text.size() ? text[end].unicode() : u' ';
    if (isOneOf(before, u"@/\\%") || isOneOf(behind, u"@+=%$\\~"))
        return std::nullopt;
    while (end > start && isEdge(text[end - 1]))
        --end;
    if (const auto gap = text.mid(start, end - start).lastIndexOf(u".."); gap >= 0)
        start += gap + 2;
    while (start < end && isEdge(text[start]))
        ++start;
    const BareHost host(text, start, end);
    return host.isWellFormed() ? std::optional(host) : std::nullopt;
}

QString BareHost::name() const {
    return m_text.mid(m_start, m_end - m_start).toString();
}

QStringView BareHost::lastLabel() const {
    const QStringView host = m_text.mid(m_start, m_end - m_start);
    return host.mid(host.lastIndexOf(u'.') + 1);
}

bool BareHost::isWellFormed() const {
    const QStringView host = m_text.mid(m_start, m_end - m_start);
    if (host.size() > longestName || host.contains(u'_'))
        return false;
    qsizetype labels = 0;
    for (qsizetype from = 0; from <= host.size(); ++labels) {
        qsizetype dot = host.indexOf(u'.', from);
        if (dot < 0)
            dot = host.size();
        if (!isLabel(host.mid(from, dot - from)))
            return false;
        from = dot + 1;
    }
    const QStringView last = lastLabel();
    return labels > 1 && last.size() > 1 && !isDigit(last[0].unicode());
}

qsizetype BareHost::endOfPort() const {
    constexpr qsizetype longestPort = 5;
    qsizetype end = m_end;
    if (end >= m_text.size() || m_text[end] != u':')
        return m_end;
    ++end;
    while (end < m_text.size() && end - m_end <= longestPort && isDigit(m_text[end].unicode()))
        ++end;
    const bool hasPath = end < m_text.size() && m_text[end] == u'/';
    return hasPath && end > m_end + 1 ? end : m_end;
}

bool BareHost::isLink(bool hasTail) const {
    const QStringView host = m_text.mid(m_start, m_end - m_start);
    if (!hasTail && !host.startsWith(u"www.", Qt::CaseInsensitive) && !looksMeant())
        return false;
    return isBelowPublicSuffix(host);
}

bool BareHost::looksMeant() const {
    const QStringView host = m_text.mid(m_start, m_end - m_start);
    const QStringView suffix = lastLabel();
    if (!isAllLower(suffix) && !isAllUpper(host))
        return false;
    if (isNumber(host.left(host.size() - suffix.size())))
        return false;
    const auto isProduct = [&](QLatin1String name) { return isSameName(host, name); };
    const auto isSeldom = [&](QLatin1String name) { return isSameName(suffix, name); };
    return std::none_of(std::begin(products), std::end(products), isProduct) &&
           std::none_of(std::begin(seldomHosts), std::end(seldomHosts), isSeldom);
}

} // namespace vantrel
