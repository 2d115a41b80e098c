#include "PreferencesWindowFixture.h"

#include <preferences/PreferencesContents.h>

#include <QAccessible>
#include <QCursor>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <algorithm>

namespace vantrel {

PreferencesWindowFixture::~PreferencesWindowFixture() {
    if (m_stage) {
        EXPECT_THAT(m_stage->warnings(), testing::IsEmpty());
    }
}

gallery::Stage &PreferencesWindowFixture::open(PreferencesTab tab, QSize size) {
    QCursor::setPos(3000, 3000); // Where no window is.
    shown.model.select(tab);
    m_stage = std::make_unique<gallery::Stage>(preferencesContent(shown.model), size);
    m_stage->show();
    return *m_stage;
}

QQuickItem &PreferencesWindowFixture::item(const char *name) const {
    QQuickItem *found = m_stage->find(QLatin1String(name));
    if (!found)
        qFatal("There is no item %s", name);
    return *found;
}

QQuickItem &PreferencesWindowFixture::item(const char *name, const char *nameWithin) const {
    for (QQuickItem *one : gallery::withDescendants(item(name))) {
        if (one->objectName() == QLatin1String(nameWithin))
            return *one;
    }
    qFatal("There is no item %s in %s", nameWithin, name);
}

QStringList PreferencesWindowFixture::texts() const {
    QStringList read;
    for (QQuickItem *one : gallery::withDescendants(item("page"))) {
        const QString text = one->property("text").toString();
        const bool isText = one->inherits("QQuickText");
        if (isText && one->isVisible() && !text.isEmpty())
            read += text;
    }
    return read;
}

QString PreferencesWindowFixture::valueBeside(const QString &title) const {
    for (QQuickItem *card : gallery::withDescendants(item("page"))) {
        const bool isCard = QByteArray(card->metaObject()->className()).startsWith("ValueSetting");
        if (isCard && card->property("title") == title)
            return card->property("value").toString();
    }
    return {};
}

void PreferencesWindowFixture::focus(QQuickItem &control) const {
    control.forceActiveFocus(Qt::TabFocusReason);
}

void PreferencesWindowFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(&m_stage->window(), key, modifiers);
}

void PreferencesWindowFixture::press(QQuickItem &control, Qt::Key key) const {
    focus(control);
    press(key);
}

void PreferencesWindowFixture::write(const QByteArray &text) const {
    for (const char letter : text)
        QTest::keyClick(&m_stage->window(), letter);
}

void PreferencesWindowFixture::click(const QQuickItem &control) const {
    click(control, control.boundingRect().center());
}

void PreferencesWindowFixture::click(const QQuickItem &control, QPointF place) const {
    QTest::mouseClick(&m_stage->window(), Qt::LeftButton, Qt::NoModifier,
                      control.mapToScene(place).toPoint());
}

QJsonValue PreferencesWindowFixture::stored(const char *member) const {
    QFile file(folder.filePath(QStringLiteral("settings.json")));
    if (!file.open(QIODevice::ReadOnly))
        return QJsonValue::Undefined;
    const QJsonObject settings = QJsonDocument::fromJson(file.readAll()).object();
    return settings.value(QStringLiteral("Vantrel.") + QLatin1String(member));
}

QString PreferencesWindowFixture::spokenName(QQuickItem &control) {
    return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
}

QString PreferencesWindowFixture::spokenDescription(QQuickItem &control) {
    return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Description);
}

bool PreferencesWindowFixture::isSpokenAsChecked(QQuickItem &control) {
    return QAccessible::queryAccessibleInterface(&control)->state().checked;
}

} // namespace vantrel
