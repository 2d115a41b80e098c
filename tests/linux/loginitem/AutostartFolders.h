#pragma once

#include <linux/loginitem/AutostartLoginItem.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantrel::tests {

/// Configuration folders of the tests' own, named in the environment, and a program to start.
class AutostartFolders : public testing::Test {
protected:
    AutostartFolders() {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(inFolder("config")));
        qputenv("XDG_CONFIG_DIRS", QFile::encodeName(inFolder("system")));
        qunsetenv("XDG_CURRENT_DESKTOP");
        makeProgram(program);
    }

    [[nodiscard]] QString inFolder(const QString &name) const { return folder.filePath(name); }
    [[nodiscard]] QString inFolder(const char *name) const {
        return inFolder(QString::fromUtf8(name));
    }

    static void write(const QString &path, const QByteArray &text) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    static QByteArray read(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    /// It leaves its arguments in a file beside it, whole once it is there.
    static void makeProgram(const QString &path) {
        write(path, "#!/bin/sh\nprintf '%s\\n' \"$0\" \"$@\" > \"$0.part\"\n"
                    "mv \"$0.part\" \"$0.started\"\n");
        ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                    QFileDevice::ExeOwner));
    }

    /// An entry that starts the program, with further lines.
    [[nodiscard]] QByteArray entry(const QByteArray &lines = {}) const {
        return "[Desktop Entry]\nType=Application\nName=Vantrel\nExec=" +
               QFile::encodeName(program) + '\n' + lines;
    }

    const QTemporaryDir folder;
    const QString program = inFolder("bin/vantrel");
    const QString usersEntry = inFolder("config/autostart/org.vantrel.Vantrel.desktop");
    const QString systemsEntry = inFolder("system/autostart/org.vantrel.Vantrel.desktop");
    AutostartLoginItem item{QStringLiteral("org.vantrel.Vantrel"), {program}};
};

} // namespace vantrel::tests
