#include "IconFolder.h"

#include "ItemPicture.h"

#include <platform/Log.h>

#include <QDir>
#include <QFile>
#include <QPointF>
#include <QRectF>
#include <QRegularExpression>

namespace vantrel {

namespace {

VANTREL_LOG(iconLog, "StatusIcon")

constexpr QLatin1String themeFolder("hicolor/scalable/status");

QString runtimeFolder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return runtime.isEmpty() ? QDir::tempPath() : runtime;
}

/// Where the symbol's own coordinates begin and how far they reach.
std::optional<QRectF> viewBox(const QByteArray &drawing) {
    static const QRegularExpression form(
        QStringLiteral("<svg[^>]*\\sviewBox=\"(\\S+) (\\S+) (\\S+) (\\S+)\""));
    const auto found = form.match(QString::fromUtf8(drawing));
    const auto part = [&](int number) { return found.captured(number).toDouble(); };
    const QRectF box(part(1), part(2), part(3), part(4));
    return box.isEmpty() ? std::nullopt : std::optional(box);
}

/// GTK's hosts paint all shapes of a symbolic icon in the panel's colour, by a style sheet that
/// only a rule for a class is a match for.
QByteArray filled(const QByteArray &color) {
    return "fill=\"" + color + "\" class=\"fill-" + color.mid(1) + "\"";
}

QByteArray rule(const QByteArray &color) {
    return ".fill-" + color.mid(1) + "{fill:" + color + " !important;}";
}

QByteArray ellipse(QPointF middle, double radius, const QByteArray &color) {
    const auto number = [](double value) { return QByteArray::number(value); };
    return "<ellipse cx=\"" + number(middle.x()) + "\" cy=\"" + number(middle.y()) + "\" rx=\"" +
           number(radius) + "\" ry=\"" + number(radius) + "\" " + filled(color) + "/>";
}

/// What cannot mask, KDE's hosts, draws the dot over the symbol, and the mask as well but for what
/// is a definition.
struct DotDrawing {
    QByteArray mask;
    QByteArray dot;
};

DotDrawing dotDrawing(const QRectF &box, const Color &color) {
    const double radius = 0.2 * box.width();
    const double gap = box.width() / 16.0;
    const QPointF middle = box.bottomRight() - QPointF(radius, radius);
    const auto corner = [](QPointF point) {
        return QByteArray::number(point.x()) + ',' + QByteArray::number(point.y()) + ' ';
    };
    const QByteArray name = toQColor(color).name().toLatin1();
    return {"<style type=\"text/css\">" + rule("#ffffff") + rule("#000000") + rule(name) +
                "</style><defs><mask id=\"around-dot\" maskUnits=\"userSpaceOnUse\" x=\"" +
                QByteArray::number(box.x()) + "\" y=\"" + QByteArray::number(box.y()) +
                "\" width=\"" + QByteArray::number(box.width()) + "\" height=\"" +
                QByteArray::number(box.height()) + "\"><polygon " + filled("#ffffff") +
                " points=\"" + corner(box.topLeft()) + corner(box.topRight()) +
                corner(box.bottomRight()) + corner(box.bottomLeft()) + "\"/>" +
                ellipse(middle, radius + gap, "#000000") + "</mask></defs>",
            ellipse(middle, radius, name)};
}

/// KDE's hosts paint what has the class that stands for the panel's colour, for which they exchange
/// the style sheet.
QByteArray tintable(const QByteArray &drawing, const std::optional<Color> &color) {
    QByteArray text = drawing;
    const auto start = text.indexOf('>', text.indexOf("<svg")) + 1;
    const auto end = text.lastIndexOf("</svg>");
    if (start == 0 || end < start)
        return {};
    const auto box = viewBox(drawing);
    const DotDrawing dot = color && box ? dotDrawing(*box, *color) : DotDrawing{};
    text.insert(end, "</g>" + dot.dot);
    text.insert(start, "<style type=\"text/css\" id=\"current-color-scheme\">"
                       ".ColorScheme-Text{color:" +
                           unknownPanelTone.name().toLatin1() + ";}</style>" + dot.mask +
                           "<g class=\"ColorScheme-Text\" fill=\"currentColor\"" +
                           (dot.mask.isEmpty() ? "" : " mask=\"url(#around-dot)\"") + ">");
    return text;
}

bool write(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

IconFolder::IconFolder(SymbolArt art)
    : m_art(std::move(art)), m_folder(runtimeFolder(), QStringLiteral("vantrel-icons-")) {
    if (!m_folder.isValid())
        qCWarning(iconLog, "The icons cannot be written: %s",
                  qUtf8Printable(m_folder.errorString()));
}

QString IconFolder::path(const QString &name) const {
    return m_folder.isValid() ? m_folder.filePath(name) : QString();
}

QString IconFolder::iconName(const QString &symbol, const std::optional<Color> &dot) {
    QString name = symbol;
    name.replace(u'.', u'-');
    // Whether a name ends so decides whether a host tints.
    const QString suffix = dot ? u'-' + toQColor(*dot).name().mid(1) + QStringLiteral("-symbolic")
                               : QStringLiteral("-symbolic");
    return named(QStringLiteral("vantrel-") + name + suffix, tintable(m_art.drawing(symbol), dot));
}

QString IconFolder::named(const QString &name, const QByteArray &drawing) const {
    if (!m_folder.isValid() || drawing.isEmpty())
        return {};
    const QDir folder(path(name));
    const QString loose = folder.filePath(name + QStringLiteral(".svg"));
    const QString themed = folder.filePath(themeFolder + u'/' + name + QStringLiteral(".svg"));
    if (QFile::exists(loose) ||
        (folder.mkpath(themeFolder) && write(themed, drawing) && write(loose, drawing)))
        return name;
    QFile::remove(loose);
    return {};
}

} // namespace vantrel
