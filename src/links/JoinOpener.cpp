#include "JoinOpener.h"

#include <QByteArray>
#include <QUrl>

#include <algorithm>

namespace vantrel {

namespace {

/// A plain web address: whoever opens it is the browser, not a meeting application that has
/// claimed the links of its own hosts. It is looked up, never opened.
constexpr QLatin1String probe("https://example.com/");

constexpr QLatin1String runShortcutPrefix("shortcuts://run-shortcut?name=");

/// What a URL's query may hold besides the unreserved characters (RFC 3986, section 3.4).
constexpr char queryAllowed[] = "!$&'()*+,;=:@/?";

bool isSpaceOrTab(QChar character) {
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

/// QString::trimmed would take line breaks away too.
QString trimmedOfSpacesAndTabs(const QString &text) {
    const auto first = std::find_if_not(text.cbegin(), text.cend(), isSpaceOrTab);
    const auto last =
        std::find_if_not(text.crbegin(), std::make_reverse_iterator(first), isSpaceOrTab).base();
    return text.mid(first - text.cbegin(), last - first);
}

} // namespace

void JoinOpener::open(Workspace &workspace, const Url &url, JoinTarget target,
                      const std::optional<QString> &shortcutName) {
    if (target == JoinTarget::defaultBrowser)
        openInDefaultBrowser(workspace, url);
    else
        workspace.open(url);

    if (shortcutName && !trimmedOfSpacesAndTabs(*shortcutName).isEmpty())
        runShortcut(workspace, *shortcutName);
}

void JoinOpener::openInDefaultBrowser(Workspace &workspace, const Url &url) {
    if (const auto browser = workspace.applicationToOpen(*Url::fromString(probe)))
        workspace.open(url, *browser);
    else
        workspace.open(url);
}

void JoinOpener::runShortcut(Workspace &workspace, const QString &name) {
    const QString trimmed = trimmedOfSpacesAndTabs(name);
    if (trimmed.isEmpty() || !trimmed.isValidUtf16())
        return;
    const QByteArray encoded = QUrl::toPercentEncoding(trimmed, queryAllowed);
    if (const auto url = Url::fromString(runShortcutPrefix + QLatin1String(encoded)))
        workspace.open(*url);
}

void JoinOpener::dial(Workspace &workspace, const QString &rawNumber) {
    QString address = QStringLiteral("tel:");
    std::copy_if(rawNumber.cbegin(), rawNumber.cend(), std::back_inserter(address),
                 [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'+'; });
    if (const auto url = Url::fromString(address))
        workspace.open(*url);
}

} // namespace vantrel
