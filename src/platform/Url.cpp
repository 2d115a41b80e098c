#include "Url.h"

#include <QUrl>

#include <algorithm>

namespace vantrel {

namespace {

bool isForbidden(QChar character) {
    return character.isSpace() || character.category() == QChar::Other_Control;
}

/// Browsers read a backslash as a slash, up to the path: what a strict reader takes for a part of
/// the user or the host ends the host there, and the link leads elsewhere than it seems.
bool isAmbiguous(QStringView behindScheme) {
    const auto slashes = std::find_if(behindScheme.cbegin(), behindScheme.cend(),
                                      [](QChar one) { return one != u'/' && one != u'\\'; });
    const auto end = std::find_if(slashes, behindScheme.cend(), [](QChar one) {
        return one == u'/' || one == u'?' || one == u'#';
    });
    const bool hasAuthority = slashes != behindScheme.cbegin();
    return hasAuthority && std::find(behindScheme.cbegin(), end, u'\\') != end;
}

/// The authority's host: between the last "@" and the port (RFC 3986, section 3.2).
QString hostOf(QStringView authority) {
    const auto at = authority.lastIndexOf(u'@');
    QStringView host = authority.mid(at + 1);
    if (host.startsWith(u'[')) {
        const auto closing = host.indexOf(u']');
        return closing < 0 ? QString() : host.mid(1, closing - 1).toString();
    }
    const auto colon = host.indexOf(u':');
    return (colon < 0 ? host : host.left(colon)).toString();
}

} // namespace

std::optional<Url> Url::fromString(const QString &text) {
    if (text.isEmpty() || std::any_of(text.cbegin(), text.cend(), isForbidden))
        return std::nullopt;
    const QUrl parsed(text, QUrl::TolerantMode);
    if (!parsed.isValid())
        return std::nullopt;

    Url url;
    url.m_text = text;
    const auto schemeLength = parsed.scheme().size();
    url.m_scheme = text.left(schemeLength);
    QStringView rest = QStringView(text).mid(schemeLength > 0 ? schemeLength + 1 : 0);
    if (isAmbiguous(rest))
        return std::nullopt;
    if (rest.startsWith(u"//")) {
        rest = rest.mid(2);
        const auto end = std::find_if(rest.cbegin(), rest.cend(), [](QChar character) {
            return character == u'/' || character == u'?' || character == u'#';
        });
        url.m_host = hostOf(rest.left(end - rest.cbegin()));
    }
    return url;
}

} // namespace vantrel
