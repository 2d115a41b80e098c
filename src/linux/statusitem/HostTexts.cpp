#include "HostTexts.h"

#include <QStringList>

#include <algorithm>

namespace vantrel {

namespace {

QString label(const QString &text) {
    return QStringLiteral("● ") + onOneLine(text);
}

} // namespace

QString onOneLine(const QString &text) {
    QString line = text;
    const auto breaks = [](QChar character) {
        return character.category() == QChar::Other_Control ||
               character.category() == QChar::Separator_Line ||
               character.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(line.begin(), line.end(), breaks, QChar(u' '));
    return line;
}

QString labelText(const ItemLook &look) {
    return look.title ? label(look.title->text) : QString();
}

QString labelGuide(const ItemLook &look) {
    return look.title && !look.title->widest.isEmpty() ? label(look.title->widest)
                                                       : labelText(look);
}

QString nameText(const ItemLook &look) {
    return look.title ? onOneLine(look.title->text) : look.accessibleDescription;
}

QString detailText(const ItemLook &look) {
    QStringList lines;
    if (look.title)
        lines.append(onOneLine(look.title->text));
    if (!look.toolTip.isEmpty() && look.toolTip != look.accessibleDescription)
        lines.append(onOneLine(look.toolTip));
    return lines.join(u'\n');
}

QString plainToolTip(const ItemLook &look) {
    const QString details = detailText(look);
    return details.isEmpty() ? nameText(look) : details;
}

HostToolTip hostToolTip(const ItemLook &look) {
    const QString details = detailText(look);
    // Some hosts take for markup only what has a tag in it: without one, an escaped "Q&A" would be
    // shown as "Q&amp;A" there. This tag means nothing in each of their dialects.
    const QString markup = details.isEmpty()
                               ? QString()
                               : QStringLiteral("<span>%1</span>").arg(details.toHtmlEscaped());
    return {{}, {}, look.accessibleDescription, markup};
}

} // namespace vantrel
