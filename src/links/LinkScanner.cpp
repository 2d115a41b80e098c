#include "LinkScanner.h"

#include "BareHost.h"
#include "Characters.h"
#include "LinkExtent.h"

#include <algorithm>

namespace vantrel {

using namespace characters;

namespace {

/// No scheme in use is longer.
constexpr qsizetype longestScheme = 24;

bool startsWith(QStringView text, QLatin1String prefix) {
    return text.startsWith(prefix, Qt::CaseInsensitive);
}

/// Elements of HTML whose attributes name what is loaded, not where one may go.
constexpr QLatin1String loadingElements[] = {
    QLatin1String("img"),   QLatin1String("link"),  QLatin1String("base"),
    QLatin1String("html"),  QLatin1String("meta"),  QLatin1String("script"),
    QLatin1String("body"),  QLatin1String("table"), QLatin1String("td"),
    QLatin1String("th"),    QLatin1String("tr"),    QLatin1String("source"),
    QLatin1String("video"), QLatin1String("audio"), QLatin1String("input"),
};

/// Whether the position lies in the attributes of such an element.
bool isInLoadingElement(QStringView text, qsizetype position) {
    constexpr qsizetype farthest = 256;
    const qsizetype first = std::max<qsizetype>(position - farthest, 0);
    const QStringView before = text.mid(first, position - first);
    const qsizetype opening = before.lastIndexOf(u'<');
    if (opening < 0 || before.indexOf(u'>', opening) >= 0 || before.indexOf(u'=', opening) < 0)
        return false;
    const QStringView element = before.mid(opening + 1);
    const auto end =
        std::find_if(element.cbegin(), element.cend(), [](QChar c) { return c.isSpace(); });
    const QStringView name = element.left(end - element.cbegin());
    return std::any_of(
        std::begin(loadingElements), std::end(loadingElements),
        [name](QLatin1String one) { return name.compare(one, Qt::CaseInsensitive) == 0; });
}

/// "url(" of a style sheet, with or without a quote.
bool isInStyleSheet(QStringView text, qsizetype position) {
    if (position > 0 && isOneOf(text[position - 1].unicode(), u"'\""))
        --position;
    return text.left(position).endsWith(u"url(");
}

} // namespace

LinkScanner::LinkScanner(QStringView text) : m_text(text) {}

char16_t LinkScanner::at(qsizetype position) const {
    return position >= 0 && position < m_text.size() ? m_text[position].unicode() : u'\0';
}

std::optional<LinkScanner::Link> LinkScanner::next(Search search) {
    while (m_position < m_text.size()) {
        const char16_t c = at(m_position);
        std::optional<Link> link;
        if (has(c, host) || !isAscii(c)) {
            const Run run = runAt(m_position);
            m_position = std::max(run.end, m_position + 1);
            link = linkOf(run, search);
        } else if (c == u'<' && at(m_position + 1) == u'!') {
            link = declarationAt(m_position);
            m_position = link ? link->end : m_position + 2;
        } else {
            ++m_position;
        }
        if (link)
            return link;
    }
    return std::nullopt;
}

LinkScanner::Run LinkScanner::runAt(qsizetype start) const {
    Run run{start, start, false};
    Letters label = Letters::none;
    while (run.end < m_text.size()) {
        const char32_t c = codePointAt(m_text, run.end);
        if (isAscii(c) ? !has(c, host) : !(QChar::isLetter(c) || QChar::isMark(c)))
            break;
        if (c == U'.') {
            run.hasDot = true;
            label = Letters::none;
        } else if (const Letters letters = lettersOf(c); letters != Letters::none) {
            if (label != Letters::none && label != letters)
                break;
            label = letters;
        }
        run.end += lengthOf(c);
    }
    return run;
}

std::optional<LinkScanner::Link> LinkScanner::linkOf(const Run &run, Search search) {
    if (at(run.end) == u':' && at(run.end + 1) == u'/' && at(run.end + 2) == u'/')
        return linkWithScheme(run, search);
    if (run.hasDot && search == Search::all)
        return linkWithoutScheme(run);
    return std::nullopt;
}

/// A scheme may be glued to a word or a number before it. Of an unknown word all is taken.
qsizetype LinkScanner::schemeStart(const Run &run) const {
    qsizetype start = run.end;
    while (start > run.start && run.end - start < longestScheme &&
           isAsciiLetterOrDigit(at(start - 1)))
        --start;
    while (start < run.end && isDigit(at(start)))
        ++start;
    const QStringView word = m_text.mid(start, run.end - start);
    for (const auto &known : {QLatin1String("https"), QLatin1String("http")}) {
        if (word.endsWith(known, Qt::CaseInsensitive))
            return run.end - known.size();
    }
    return start;
}

bool LinkScanner::isHttpAt(qsizetype position) const {
    const QStringView rest = m_text.mid(position, 8);
    return startsWith(rest, QLatin1String("http://")) ||
           startsWith(rest, QLatin1String("https://"));
}

std::optional<LinkScanner::Link> LinkScanner::linkWithScheme(const Run &run, Search search) {
    const qsizetype start = schemeStart(run);
    const qsizetype body = run.end + 3;
    m_position = body;
    if (start == run.end || isHttpAt(body)) // a scheme before a whole link is a slip
        return std::nullopt;

    const char16_t first = at(body);
    const bool hasHost = first != u'/' && first != u'?' && first != u'#';
    if (!hasHost && isHttpAt(start)) // nowhere to go
        return std::nullopt;

    const LinkExtent extent(m_text, start, body);
    if (extent.end() == body)
        return std::nullopt;
    m_position = extent.end();
    Link link{start, extent.end(), QString()};
    if (search == Search::all && !extent.isTooLong() && !isEmbedded(start) && !isLabel(link.end))
        link.address = extent.address();
    return link;
}

std::optional<LinkScanner::Link> LinkScanner::linkWithoutScheme(const Run &run) {
    const auto bareHost = BareHost::find(m_text, run.start, run.end);
    if (!bareHost)
        return std::nullopt;
    // Punctuation that was cut from the run closes the sentence: no path follows it.
    const qsizetype body = bareHost->end() == run.end ? bareHost->endOfPort() : run.end;
    const char16_t behind = at(body);
    if (bareHost->end() != run.end || (behind != u'/' && behind != u'?' && behind != u'#'))
        return bareLink(*bareHost, nullptr);
    const LinkExtent extent(m_text, bareHost->start(), body);
    return bareLink(*bareHost, &extent);
}

std::optional<LinkScanner::Link> LinkScanner::bareLink(const BareHost &host,
                                                       const LinkExtent *extent) {
    const qsizetype end = extent ? extent->end() : host.end();
    if (!host.isLink(end > host.end()))
        return std::nullopt;
    m_position = end;
    Link link{host.start(), end, QString()};
    if (!(extent && extent->isTooLong()) && !isLabel(end))
        link.address = QLatin1String("http://") + (extent ? extent->address() : host.name());
    return link;
}

/// "zoom.us/j/87...<https://zoom.us/j/873>", "[zoom.us](https://zoom.us/j/873)": what a mail
/// program or a person shows in place of a link, often shortened.
bool LinkScanner::isLabel(qsizetype end) const {
    constexpr qsizetype longestEllipsis = 3;
    const QStringView behind = m_text.mid(end, 6);
    for (const auto &opener : {QLatin1String("%20%3C"), QLatin1String("%3C")}) {
        if (startsWith(behind, opener))
            return isHttpAt(end + opener.size());
    }
    qsizetype position = end;
    while (position - end < longestEllipsis && (at(position) == u'.' || at(position) == 0x2026))
        ++position;
    if (at(position) == u'<')
        return isHttpAt(position + 1);
    return at(position) == u']' && at(position + 1) == u'(' && isHttpAt(position + 2);
}

/// The document type of an HTML text names its grammar by something that looks like a link.
std::optional<LinkScanner::Link> LinkScanner::declarationAt(qsizetype start) {
    constexpr qsizetype longestDeclaration = 1024;
    const QStringView rest = m_text.mid(start, longestDeclaration);
    if (!startsWith(rest, QLatin1String("<!doctype")))
        return std::nullopt;
    const qsizetype end = rest.indexOf(u'>');
    if (end < 0)
        return std::nullopt;
    return Link{start, start + end + 1, QString()};
}

/// In HTML, what stands as a value of these attributes is loaded, not followed.
bool LinkScanner::isEmbedded(qsizetype start) const {
    if (isInLoadingElement(m_text, start) || isInStyleSheet(m_text, start))
        return true;
    const char16_t quote = at(start - 1);
    if ((quote != u'"' && quote != u'\'') || at(start - 2) != u'=')
        return false;
    constexpr qsizetype longestName = 20;
    qsizetype nameStart = start - 2;
    while (
        start - nameStart < longestName &&
        (has(at(nameStart - 1), letter) || at(nameStart - 1) == u':' || at(nameStart - 1) == u'-'))
        --nameStart;
    const QStringView name = m_text.mid(nameStart, start - 2 - nameStart);
    return name.compare(QLatin1String("src"), Qt::CaseInsensitive) == 0 ||
           name.compare(QLatin1String("background"), Qt::CaseInsensitive) == 0 ||
           startsWith(name, QLatin1String("xmlns"));
}

} // namespace vantrel
