#include "IconFolder.h"

#include "ItemPicture.h"

#include <platform/Log.h>

#include <QDir>
#include <QFile>

namespace vantrel {

namespace {

VANTREL_LOG(iconLog, "StatusIcon")

constexpr QLatin1String themeFolder("hicolor/scalable/status");

QString runtimeFolder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return runtime.isEmpty() ? QDir::tempPath() : runtime;
}

/// GTK's hosts paint every path of a symbolic icon in the panel's colour; KDE's those of the class
/// that stands for it, for which they exchange the style sheet.
QByteArray tintable(const QByteArray &drawing) {
    QByteArray text = drawing;
    const auto start = text.indexOf('>', text.indexOf("<svg")) + 1;
    const auto end = text.lastIndexOf("</svg>");
    if (start == 0 || end < start)
        return {};
    text.insert(end, "</g>");
    text.insert(start, "<style type=\"text/css\" id=\"current-color-scheme\">"
                       ".ColorScheme-Text{color:" +
                           unknownPanelTone.name().toLatin1() +
                           ";}</style><g class=\"ColorScheme-Text\" fill=\"currentColor\">");
    return text;
}

bool write(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

IconFolder::IconFolder(SymbolArt art)
    : m_art(std::move(art)), m_folder(runtimeFolder(), QStringLiteral("vantrel-icons-")) {
    if (!m_folder.isValid() || !QDir(m_folder.path()).mkpath(themeFolder))
        qCWarning(iconLog, "The icons cannot be written: %s",
                  qUtf8Printable(m_folder.errorString()));
}

QString IconFolder::path() const {
    return m_folder.isValid() ? m_folder.path() : QString();
}

QString IconFolder::symbolName(const QString &symbol) {
    QString name = symbol;
    name.replace(u'.', u'-');
    return named(QStringLiteral("vantrel-%1-symbolic").arg(name), tintable(m_art.drawing(symbol)));
}

QString IconFolder::dotName(const Color &dot) {
    const QString color = toQColor(dot).name();
    return named(QStringLiteral("vantrel-dot-%1").arg(color.mid(1)),
                 QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\">"
                                "<circle cx=\"8\" cy=\"8\" r=\"8\" fill=\"%1\"/></svg>")
                     .arg(color)
                     .toLatin1());
}

QString IconFolder::named(const QString &name, const QByteArray &drawing) const {
    if (!m_folder.isValid() || drawing.isEmpty())
        return {};
    const QString loose = m_folder.filePath(name + QStringLiteral(".svg"));
    const QString themed = m_folder.filePath(themeFolder + u'/' + name + QStringLiteral(".svg"));
    if (QFile::exists(loose) || (write(themed, drawing) && write(loose, drawing)))
        return name;
    QFile::remove(loose);
    return {};
}

} // namespace vantrel
