#include "PlainArt.h"

#include <linux/statusitem/IconFolder.h>

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace vantrel::tests {

namespace {

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(IconFolderTest, HoldsASymbolInAFormThatHostsTint) {
    IconFolder folder(plainArt());
    const QString name = folder.iconName(QStringLiteral("pawprint.fill"), std::nullopt);
    EXPECT_EQ(name, QStringLiteral("vantrel-pawprint-fill-symbolic"));
    const QByteArray loose = contentOf(folder.path(name) + u'/' + name + QStringLiteral(".svg"));
    EXPECT_TRUE(loose.contains("<g class=\"ColorScheme-Text\" fill=\"currentColor\"><path"));
    EXPECT_TRUE(loose.endsWith("</g></svg>"));
    EXPECT_EQ(contentOf(folder.path(name) + QStringLiteral("/hicolor/scalable/status/") + name +
                        QStringLiteral(".svg")),
              loose);
}

TEST(IconFolderTest, HoldsAnIconForEachColorOfTheDot) {
    IconFolder folder(plainArt());
    const QString red = folder.iconName(QStringLiteral("pawprint"), Color{1.0, 0.0, 0.0, 1.0});
    EXPECT_EQ(red, QStringLiteral("vantrel-pawprint-ff0000-symbolic"));
    EXPECT_NE(folder.iconName(QStringLiteral("pawprint"), Color{0.0, 0.0, 1.0, 1.0}), red);
}

TEST(IconFolderTest, LeavesTheDotItsColorWhereAHostTints) {
    IconFolder folder(plainArt());
    const QString name = folder.iconName(QStringLiteral("pawprint"), Color{1.0, 0.5, 0.0, 1.0});
    QByteArray drawing = contentOf(folder.path(name) + u'/' + name + QStringLiteral(".svg"));
    // KDE's hosts exchange the colour of the class, which Qt's reader looks up nowhere.
    EXPECT_TRUE(drawing.contains("<g class=\"ColorScheme-Text\" fill=\"currentColor\""));
    drawing.replace("currentColor", "#00ff00");
    QImage picture(20, 20, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(drawing).render(&painter);
    painter.end();
    EXPECT_EQ(picture.pixelColor(14, 4), QColor(0x00, 0xff, 0x00));
    EXPECT_EQ(picture.pixelColor(16, 16), QColor(0xff, 0x80, 0x00));
    EXPECT_EQ(picture.pixelColor(2, 16).alpha(), 0);
    // GTK's hosts have a style sheet of their own.
    EXPECT_TRUE(drawing.contains(".fill-ff8000{fill:#ff8000 !important;}"));
}

TEST(IconFolderTest, HasNoNameForASymbolThatIsNotThere) {
    IconFolder folder(plainArt());
    EXPECT_EQ(folder.iconName({}, std::nullopt), QString());
}

TEST(IconFolderTest, HasNoNamesWhereNothingCanBeWritten) {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    IconFolder folder(plainArt());
    qputenv("XDG_RUNTIME_DIR", runtime);
    EXPECT_EQ(folder.path({}), QString());
    EXPECT_EQ(folder.iconName(QStringLiteral("pawprint"), Color{}), QString());
}

TEST(IconFolderTest, GoesWithItsOwner) {
    auto folder = std::make_unique<IconFolder>(plainArt());
    const QString path = folder->path({});
    ASSERT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
    folder.reset();
    EXPECT_FALSE(QFileInfo::exists(path));
}

} // namespace vantrel::tests
