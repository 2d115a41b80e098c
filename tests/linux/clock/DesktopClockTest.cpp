#include <linux/clock/DesktopClock.h>

#include <QByteArray>

#include <gio/gio.h>
#include <gmock/gmock.h>

#include <memory>

namespace vantrel {
namespace {

class DesktopClockTest : public testing::Test {
protected:
    DesktopClockTest() { qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME"); }

    /// As the desktop's own preferences do.
    void choose(const char *format) {
        g_settings_set_string(m_settings.get(), "clock-format", format);
    }

private:
    std::unique_ptr<GSettings, decltype(&g_object_unref)> m_settings{
        g_settings_new("org.gnome.desktop.interface"), g_object_unref};
};

} // namespace

TEST_F(DesktopClockTest, FollowsTheDesktopWhileTheProgramRuns) {
    choose("12h");
    const DesktopClock clock;
    EXPECT_EQ(clock.format(), ClockFormat::twelveHours);
    choose("24h");
    EXPECT_EQ(clock.format(), ClockFormat::twentyFourHours);
}

TEST_F(DesktopClockTest, IsTheLocalesOnADesktopThatHasNoSuchSetting) {
    choose("12h");
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    EXPECT_EQ(DesktopClock().format(), ClockFormat::ofLocale);
    qunsetenv("XDG_CURRENT_DESKTOP");
    EXPECT_EQ(DesktopClock().format(), ClockFormat::ofLocale);
}

} // namespace vantrel

/// GLib reads its environment once: the setting is in memory and the user's own is left alone.
int main(int argc, char **argv) {
    qputenv("GSETTINGS_BACKEND", "memory");
    qputenv("GSETTINGS_SCHEMA_DIR", SCHEMAS);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
