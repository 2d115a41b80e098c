#include "CalendarFiles.h"
#include "CapturedLog.h"

#include <linux/eventstore/StoreConfiguration.h>

namespace vantrel {
namespace {

using namespace tests;

/// The user's folders in a scratch place, and the environment as it was at the end.
class StoreConfigurationTest : public ::testing::Test {
protected:
    StoreConfigurationTest()
        : m_data(qgetenv("XDG_DATA_HOME")), m_config(qgetenv("XDG_CONFIG_HOME")) {
        qputenv("XDG_DATA_HOME", files.path(QStringLiteral("data")).toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", files.path(QStringLiteral("config")).toLocal8Bit());
    }

    ~StoreConfigurationTest() override {
        restore("XDG_DATA_HOME", m_data);
        restore("XDG_CONFIG_HOME", m_config);
    }

    void writeFile(const QByteArray &text) const {
        files.write(QStringLiteral("config/Vantrel/calendars.json"), text);
    }

    CapturedLog log;
    CalendarFiles files;

private:
    static void restore(const char *name, const QByteArray &value) {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }

    const QByteArray m_data;
    const QByteArray m_config;
};

TEST_F(StoreConfigurationTest, WithoutAFileHasTheUsersCalendarHomeAlone) {
    const auto configuration = StoreConfiguration::ofUser();
    ASSERT_EQ(configuration.roots.size(), 1U);
    EXPECT_EQ(configuration.roots[0].path, files.path(QStringLiteral("data/Vantrel/calendars")));
    EXPECT_TRUE(configuration.roots[0].isCalendarHome);
    EXPECT_TRUE(configuration.addresses.isEmpty());
    EXPECT_EQ(log.text(), "");
}

TEST_F(StoreConfigurationTest, AddsTheFoldersAndAddressesOfTheFile) {
    writeFile(
        R"({"folders": ["/srv/cal", "~/cal"], "addresses": ["MAILTO:Me@Example.com ", "b@c"]})");
    const auto configuration = StoreConfiguration::ofUser();
    ASSERT_EQ(configuration.roots.size(), 3U);
    EXPECT_EQ(configuration.roots[1].path, QStringLiteral("/srv/cal"));
    EXPECT_EQ(configuration.roots[2].path, QDir::homePath() + QStringLiteral("/cal"));
    EXPECT_EQ(configuration.addresses,
              (QStringList{QStringLiteral("me@example.com"), QStringLiteral("b@c")}));
}

TEST_F(StoreConfigurationTest, PassesOverAFileThatCannotBeRead) {
    for (const char *text : {"", "{", "[]", "\"x\"", "\xff\xff"}) {
        log.clear();
        writeFile(text);
        EXPECT_EQ(StoreConfiguration::ofUser().roots.size(), 1U) << text;
        EXPECT_TRUE(log.has("calendars.json", "not read")) << text << log.text();
    }
}

TEST_F(StoreConfigurationTest, AFileBehindALinkThatLeadsNowhereMayNameFolders) {
    EXPECT_FALSE(StoreConfiguration::ofUser().mayNameOthers);
    QDir().mkpath(files.path(QStringLiteral("config")));
    const QString folder = files.path(QStringLiteral("config/Vantrel"));
    ASSERT_TRUE(QFile::link(files.path(QStringLiteral("dotfiles")), folder));
    EXPECT_TRUE(StoreConfiguration::ofUser().mayNameOthers);
    EXPECT_TRUE(log.has("calendars.json", "not read")) << log.text();

    QDir().mkpath(files.path(QStringLiteral("dotfiles")));
    EXPECT_FALSE(StoreConfiguration::ofUser().mayNameOthers);
    ASSERT_TRUE(
        QFile::link(QStringLiteral("elsewhere.json"), folder + QStringLiteral("/calendars.json")));
    EXPECT_TRUE(StoreConfiguration::ofUser().mayNameOthers);
    files.write(QStringLiteral("dotfiles/elsewhere.json"), "{}");
    EXPECT_FALSE(StoreConfiguration::ofUser().mayNameOthers);
}

TEST_F(StoreConfigurationTest, PassesOverWhatIsNoText) {
    writeFile(R"({"folders": ["/a", 1, null, ""], "addresses": "me@example.com"})");
    const auto configuration = StoreConfiguration::ofUser();
    EXPECT_EQ(configuration.roots.size(), 2U);
    EXPECT_TRUE(configuration.addresses.isEmpty());
    EXPECT_TRUE(log.has("calendars.json", "\"folders\" is no list of texts")) << log.text();
    EXPECT_TRUE(log.has("calendars.json", "\"addresses\" is no list of texts")) << log.text();
}

TEST_F(StoreConfigurationTest, TellsPlacesOfOneNameApart) {
    writeFile(R"({"folders": ["/srv/team", "~/team/", "/srv/other", "/x/Calendar Folder"]})");
    std::vector<std::string> titles;
    const auto configuration = StoreConfiguration::ofUser();
    for (const FolderRoot &root : configuration.roots)
        titles.push_back(root.title.toStdString());
    EXPECT_EQ(titles, (std::vector<std::string>{"Calendar Folder", "/srv/team", "~/team", "",
                                                "/x/Calendar Folder"}));
    const auto places = configuration.places();
    EXPECT_EQ(places[2], (CalendarPlace{QStringLiteral("~/team"), {}}));
    EXPECT_EQ(places[3], (CalendarPlace{QStringLiteral("other"), QStringLiteral("/srv/other")}));
}

TEST_F(StoreConfigurationTest, OfPathsKeepsTheAddresses) {
    writeFile(R"({"folders": ["/srv/cal"], "addresses": ["me@example.com"]})");
    const auto configuration = StoreConfiguration::ofPaths({QStringLiteral("/x")});
    ASSERT_EQ(configuration.roots.size(), 1U);
    EXPECT_EQ(configuration.roots[0].path, QStringLiteral("/x"));
    EXPECT_EQ(configuration.addresses, QStringList{QStringLiteral("me@example.com")});
}

} // namespace
} // namespace vantrel
