#include "AutostartFolders.h"

#include <session/Waiting.h>

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace vantrel::tests {

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// GLib reads entries for many a session.
class LoginItemLaunchTest : public AutostartFolders {
protected:
    /// Has the written entry started as at login; what the program was started with.
    QByteArray argumentsAfterLogin(const QStringList &command) {
        makeProgram(command.first());
        AutostartLoginItem written(QStringLiteral("org.vantrel.Vantrel"), command);
        EXPECT_EQ(written.registerItem(), std::nullopt);
        EXPECT_EQ(written.status(), LoginItem::Status::enabled);
        launch(QFile::encodeName(usersEntry));
        const QString started = command.first() + QStringLiteral(".started");
        EXPECT_TRUE(waitUntil([&] { return QFile::exists(started); }, Looking::often));
        return read(started);
    }

    static void launch(const QByteArray &path) {
        const std::unique_ptr<GDesktopAppInfo, Unref> entry(
            g_desktop_app_info_new_from_filename(path.constData()));
        ASSERT_TRUE(entry);
        ASSERT_TRUE(g_app_info_launch(G_APP_INFO(entry.get()), nullptr, nullptr, nullptr));
    }
};

} // namespace

TEST_F(LoginItemLaunchTest, StartsTheProgram) {
    EXPECT_EQ(argumentsAfterLogin({program}), QFile::encodeName(program) + '\n');
}

TEST_F(LoginItemLaunchTest, StartsAProgramWhosePathHasSpacesAndQuotes) {
    const QString odd = inFolder("my programs/it's \"here\"/vantrel");
    EXPECT_EQ(argumentsAfterLogin({odd}), QFile::encodeName(odd) + '\n');
}

TEST_F(LoginItemLaunchTest, StartsAProgramWhosePathMeansSomethingToAShell) {
    const QString odd = inFolder("a $HOME `id` \\n;&|é/vantrel");
    EXPECT_EQ(argumentsAfterLogin({odd}), QFile::encodeName(odd) + '\n');
}

TEST_F(LoginItemLaunchTest, HandsTheArgumentsOver) {
    EXPECT_EQ(argumentsAfterLogin(
                  {program, QStringLiteral("--profile"), QStringLiteral("/a b/c%d"), QString()}),
              QFile::encodeName(program) + "\n--profile\n/a b/c%d\n\n");
}

} // namespace vantrel::tests
