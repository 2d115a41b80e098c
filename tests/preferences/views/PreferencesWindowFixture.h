#pragma once

#include <linux/userdefaults/JsonUserDefaults.h>

#include <QJsonValue>
#include <QTemporaryDir>

#include <gallery/ShownPreferences.h>
#include <gallery/Stage.h>
#include <gmock/gmock.h>

#include <memory>

namespace vantrel {

/// The preferences window over a settings file of its own, with the hands at it.
class PreferencesWindowFixture : public testing::Test {
protected:
    ~PreferencesWindowFixture() override;

    gallery::Stage &open(PreferencesTab tab, QSize size = {880, 600});
    [[nodiscard]] gallery::Stage &stage() const { return *m_stage; }

    /// The item of that name, and the one that lies in it under the second name.
    [[nodiscard]] QQuickItem &item(const char *name) const;
    [[nodiscard]] QQuickItem &item(const char *name, const char *nameWithin) const;

    /// What a person reads on the page, in its order.
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] bool isRead(const QString &text) const { return texts().contains(text); }

    /// The value that stands beside the title of a card.
    [[nodiscard]] QString valueBeside(const QString &title) const;

    void focus(QQuickItem &control) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Puts the keyboard into the control and presses the key.
    void press(QQuickItem &control, Qt::Key key) const;
    void write(const QByteArray &text) const;
    void click(const QQuickItem &control) const;
    void click(const QQuickItem &control, QPointF place) const;

    /// What the settings file holds under "Vantrel." and the member's name.
    [[nodiscard]] QJsonValue stored(const char *member) const;

    /// What a control tells a screen reader.
    [[nodiscard]] static QString spokenName(QQuickItem &control);
    [[nodiscard]] static QString spokenDescription(QQuickItem &control);
    [[nodiscard]] static bool isSpokenAsChecked(QQuickItem &control);

    QTemporaryDir folder;
    JsonUserDefaults defaults{folder.filePath(QStringLiteral("settings.json"))};
    gallery::ShownPreferences shown{defaults};

private:
    std::unique_ptr<gallery::Stage> m_stage;
};

} // namespace vantrel
