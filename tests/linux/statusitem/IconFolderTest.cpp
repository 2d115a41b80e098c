#include "PlainArt.h"

#include <linux/statusitem/IconFolder.h>

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <memory>

namespace vantrel::tests {

namespace {

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(IconFolderTest, HoldsASymbolInAFormThatHostsTint) {
    IconFolder folder(plainArt());
    const QString name = folder.symbolName(QStringLiteral("pawprint.fill"));
    EXPECT_EQ(name, QStringLiteral("vantrel-pawprint-fill-symbolic"));
    const QByteArray loose = contentOf(folder.path() + u'/' + name + QStringLiteral(".svg"));
    EXPECT_TRUE(loose.contains("<g class=\"ColorScheme-Text\" fill=\"currentColor\"><path"));
    EXPECT_TRUE(loose.endsWith("</g></svg>"));
    EXPECT_EQ(contentOf(folder.path() + QStringLiteral("/hicolor/scalable/status/") + name +
                        QStringLiteral(".svg")),
              loose);
}

TEST(IconFolderTest, HoldsADotForEachColor) {
    IconFolder folder(plainArt());
    const QString red = folder.dotName({1.0, 0.0, 0.0, 1.0});
    EXPECT_EQ(red, QStringLiteral("vantrel-dot-ff0000"));
    EXPECT_NE(folder.dotName({0.0, 0.0, 1.0, 1.0}), red);
    EXPECT_TRUE(contentOf(folder.path() + u'/' + red + QStringLiteral(".svg"))
                    .contains("fill=\"#ff0000\""));
}

TEST(IconFolderTest, HasNoNameForASymbolThatIsNotThere) {
    IconFolder folder(plainArt());
    EXPECT_EQ(folder.symbolName({}), QString());
}

TEST(IconFolderTest, HasNoNamesWhereNothingCanBeWritten) {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    IconFolder folder(plainArt());
    qputenv("XDG_RUNTIME_DIR", runtime);
    EXPECT_EQ(folder.path(), QString());
    EXPECT_EQ(folder.symbolName(QStringLiteral("pawprint")), QString());
    EXPECT_EQ(folder.dotName({}), QString());
}

TEST(IconFolderTest, GoesWithItsOwner) {
    auto folder = std::make_unique<IconFolder>(plainArt());
    const QString path = folder->path();
    ASSERT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
    folder.reset();
    EXPECT_FALSE(QFileInfo::exists(path));
}

} // namespace vantrel::tests
